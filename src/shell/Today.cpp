#include "shell/Today.h"

#include <utility>

#include "Classes/App/HHAppTimerKeys.h"
#include "platform/Environment.h"

namespace dayward {

namespace {

Calendar::Fields presentDay() {
    const Environment& environment = Environment::current();
    const Calendar::Fields now = environment.calendar()->fields(environment.now());
    return {now.year, now.month, now.day};
}

}  // namespace

Today::Today(QObject* parent) : QObject(parent), day_(presentDay()) {
    timer_ = Environment::current().notifications().addObserver(HHAppTimerKeys::everySecound,
                                                                [this](const Notification&) { follow(); });
}

void Today::follow() {
    const Calendar::Fields present = presentDay();
    if (std::exchange(day_, present) != present) emit changed();
}

}  // namespace dayward

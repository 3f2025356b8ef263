#include "Classes/Interface/Edit/PeriodViewController.h"

#include <algorithm>

#include "Classes/Interface/Edit/PeriodExViewController.h"
#include "Classes/Interface/General/Interface.h"
#include "Classes/Interface/Screens/Presenter.h"
#include "platform/Strings.h"

namespace dayward {

PeriodViewController::PeriodViewController(Duration duration, Completion completionBlock)
    : duration_(std::move(duration)),
      completionBlock_(std::move(completionBlock)),
      values_{std::nullopt, XDIDateInterval(CalendarUnit::minute, 1), XDIDateInterval(CalendarUnit::hour, 1),
              XDIDateInterval(CalendarUnit::day, 1), XDIDateInterval(CalendarUnit::day, 7)} {
    setTitle(localized("Duration"));
}

std::vector<TableSection> PeriodViewController::makeSections() {
    TableSection presets{"presets", {}, {}, {}};
    for (std::size_t index = 0; index < values_.size(); ++index) {
        const Duration& value = values_[index];
        presets.rows.push_back(checkRow("preset" + std::to_string(index), Interface::descriptionDuration(value),
                                        value == duration_, [this, value] { choose(value); }));
    }
    const bool isCustom = std::ranges::find(values_, duration_) == values_.end();
    TableSection custom{"custom", {}, isCustom ? Interface::descriptionDuration(duration_) : std::string(), {}};
    custom.rows.push_back(checkRow("custom", localized("Custom"), isCustom, [this] { openCustom(); }));
    custom.rows.back().opensScreen = true;
    return {std::move(presets), std::move(custom)};
}

void PeriodViewController::choose(const Duration& duration) {
    duration_ = duration;
    completionBlock_(duration_);
    presenter().pop(*this);
}

void PeriodViewController::openCustom() {
    const auto take = [self = std::weak_ptr(std::static_pointer_cast<PeriodViewController>(shared_from_this()))](
                          const XDIDateInterval& duration) {
        const auto screen = self.lock();
        if (!screen) return;
        screen->duration_ = duration;
        screen->reloadData();
        screen->completionBlock_(duration);
    };
    presenter().push(*this, std::make_shared<PeriodExViewController>(duration_, take));
}

}  // namespace dayward

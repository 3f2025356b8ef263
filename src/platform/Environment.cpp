#include "platform/Environment.h"

#include "platform/DirectoryWatch.h"
#include "platform/FatalError.h"
#include "platform/FileCoordinator.h"
#include "platform/FileSystem.h"
#include "platform/Log.h"
#include "platform/NotificationCenter.h"
#include "platform/DispatchQueue.h"
#include "platform/Strings.h"
#include "platform/UserDefaults.h"

namespace dayward {

namespace {

thread_local Environment* currentEnvironment = nullptr;

std::shared_ptr<const Calendar> makeCalendar(const TimeZone& zone, const Locale& locale) {
    return std::make_shared<const Calendar>(zone, locale.firstWeekday(), locale.minimumDaysInFirstWeek());
}

}  // namespace

Environment::Environment(Services services)
    : services_(std::move(services)), calendar_(makeCalendar(services_.zone, services_.locale)) {}

Environment::~Environment() {
    const EnvironmentScope scope(this);
    finishQueues();
    while (std::shared_ptr<void> last = takeLastShared()) last.reset();
    finishQueues();
}

void Environment::finishQueues() {
    if (!services_.queues) return;
    services_.queues->dropDelayed();
    services_.queues->waitUntilIdle();
    services_.queues->dropDelayed();
}

std::shared_ptr<void> Environment::takeLastShared() {
    const Lock lock(sharedMutex_);
    if (sharedOrder_.empty()) return nullptr;
    std::shared_ptr<void> last = std::move(sharedOrder_.back());
    sharedOrder_.pop_back();
    return last;
}

std::shared_ptr<Environment::SharedSlot> Environment::sharedSlot(std::type_index type) {
    const Lock lock(sharedMutex_);
    std::shared_ptr<SharedSlot>& slot = sharedSlots_[type];
    if (!slot) slot = std::make_shared<SharedSlot>();
    return slot;
}

void Environment::keepShared(std::shared_ptr<void> made) {
    const Lock lock(sharedMutex_);
    sharedOrder_.push_back(std::move(made));
}

void Environment::stopForRecursion(const std::type_info& type) {
    fatalError(std::string("a shared object is asked for while it is being made: ") + type.name());
}

Environment& Environment::current() {
    if (currentEnvironment == nullptr) fatalError("no environment is in scope");
    return *currentEnvironment;
}

bool Environment::hasCurrent() { return currentEnvironment != nullptr; }

std::shared_ptr<const Calendar> Environment::calendar() const {
    const Lock lock(zoneMutex_);
    return calendar_;
}

Locale Environment::locale() const { return services_.locale; }

void Environment::setTimeZone(const TimeZone& zone) {
    auto calendar = makeCalendar(zone, services_.locale);
    const Lock lock(zoneMutex_);
    calendar_ = std::move(calendar);
}

EnvironmentScope::EnvironmentScope(Environment* environment) : outer_(currentEnvironment) {
    currentEnvironment = environment;
}

EnvironmentScope::~EnvironmentScope() { currentEnvironment = outer_; }

}  // namespace dayward

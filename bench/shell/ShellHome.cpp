#include "shell/ShellHome.h"

#include <cstdlib>
#include <random>
#include <vector>

#include "Classes/App/AppInfo.h"
#include "Classes/App/AppManager.h"
#include "Classes/App/ArchiveRegistration.h"
#include "Classes/App/EventFactory.h"
#include "Classes/Category/NamedEventBackgroundPicture.h"
#include "Classes/Category/NamedEventIconPicture.h"
#include "Classes/Event/EventLocalStore.h"
#include "Classes/Event/HHEvent.h"
#include "platform/linux/LinuxEnvironment.h"
#include "resources/HHResources.h"

namespace dayward::bench {

namespace {

std::shared_ptr<HHEvent> eventOf(int number, std::mt19937& random) {
    const auto below = [&](std::size_t end) { return random() % end; };
    const bool isYearly = number % 2 == 0;
    const double days = isYearly ? -60 * 365.0 : -2 * 365.0;
    auto event = EventFactory::createEvent();
    event->setName("Summer holidays by the sea " + std::to_string(number));
    event->setDate(Environment::current().now() + TimeInterval((days + static_cast<double>(below(12 * 365))) * 86400));
    event->setTimes({static_cast<std::int64_t>(5 * below(288))});
    if (isYearly) event->setRrule("FREQ=YEARLY;INTERVAL=1");
    event->setIntervalFormat(
        {CalendarUnit::day | CalendarUnit::hour | CalendarUnit::minute | CalendarUnit::second, TextStyle::short_});
    event->setNote("Take the blue bag, the sun cream and the tickets; the train leaves from platform seven.");
    event->setIcon(std::make_shared<NamedEventIconPicture>(HHResources::icons()[below(HHResources::icons().size())]));
    const auto& backgrounds = HHResources::backgrounds();
    event->setBackground(std::make_shared<NamedEventBackgroundPicture>(backgrounds[below(backgrounds.size())]));
    return event;
}

}  // namespace

Environment::Services shellServices(const std::string& home, std::shared_ptr<Queues> queues) {
    LinuxOptions options;
    options.home = home;
    options.resources = DAYWARD_BENCH_SHARE;
    options.archiveClasses = allArchiveClasses();
    options.queues = std::move(queues);
    auto services = makeLinuxServices(options);
    if (!services) std::abort();
    return *std::move(services);
}

void makeShellHome(const std::string& home, int count) {
    Environment environment(shellServices(home));
    const EnvironmentScope scope(&environment);
    if (!AppManager::performFirstLaunch()) std::abort();
    EventLocalStore& store = EventLocalStore::shared();
    std::mt19937 random(7);
    std::vector<std::shared_ptr<HHEvent>> events;
    for (int number = static_cast<int>(store.itemsCount()); number < count; ++number) events.push_back(eventOf(number, random));
    store.updateEvents(events);
    if (!store.flush()) std::abort();
}

}  // namespace dayward::bench

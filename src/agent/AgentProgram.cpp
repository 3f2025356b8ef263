#include "agent/AgentProgram.h"

#include <csignal>
#include <cstdlib>
#include <ctime>
#include <memory>
#include <utility>
#include <vector>

#include "agent/Agent.h"
#include "agent/Claimant.h"
#include "agent/DrivenTime.h"
#include "agent/EventLoop.h"
#include "agent/FilesSource.h"
#include "agent/IdleEnd.h"
#include "agent/LineDisplay.h"
#include "agent/ProgramRefresher.h"
#include "agent/SystemTime.h"
#include "agent/desktop/AgentDesktop.h"
#include "platform/Archivable.h"
#include "platform/FileSystem.h"
#include "platform/Log.h"
#include "platform/Paths.h"
#include "platform/linux/LinuxFileSystem.h"

namespace dayward {

namespace {

template <class Wait>
Result<std::unique_ptr<AgentWait>> shared(Result<Wait> made) {
    Wait wait = TRY(std::move(made));
    return std::make_unique<Wait>(std::move(wait));
}

Result<std::unique_ptr<AgentWait>> makeWait(const AgentOptions& options) {
    if (options.drivenClock.empty()) return shared(SystemTime::make());
    return shared(DrivenTime::make(options.drivenClock));
}

Result<std::unique_ptr<Surroundings>> makeSurroundings(const AgentOptions& options, const AgentTime& time) {
    if (!options.drivenClock.empty() && !options.onDesktop) return std::make_unique<LineSurroundings>();
    return TRY(AgentDesktop::make({options.home, options.programs, options.resources, options.version}, time));
}

/// The files that tell the zone of the device.
std::vector<std::string> zoneFiles() {
    std::vector<std::string> files{"/etc/localtime", "/etc/timezone"};
    if (const char* zone = std::getenv("TZ")) {
        const std::string path = *zone == ':' ? zone + 1 : zone;
        if (path.starts_with('/')) files.push_back(path);
    }
    return files;
}

std::string utcText(Date date) {
    const auto seconds = static_cast<time_t>(wholeSeconds(date.secondsSince1970()));
    std::tm fields{};
    char text[32];
    std::strftime(text, sizeof text, "%Y-%m-%dT%H:%M:%S+00:00", gmtime_r(&seconds, &fields));
    return text;
}

std::vector<std::string> refreshCommand(const AgentOptions& options, const AgentTime& time) {
    std::vector<std::string> command{joinPath(options.programs, "dayward")};
    if (!options.home.empty()) command.insert(command.end(), {"--home", options.home});
    if (!options.drivenClock.empty()) command.insert(command.end(), {"--now", utcText(time.now())});
    command.insert(command.end(), {"notifications", "refresh"});
    return command;
}

Result<> run(const AgentOptions& options) {
    const Paths paths = Paths::resolve(options.home, {});
    const auto files = std::make_shared<LinuxFileSystem>();
    const auto classes = std::make_shared<const ArchiveClasses>();
    TRY_VOID(files->createDirectories(paths.state));
    removeStaleTemporaries(*files, paths.state);
    const std::unique_ptr<AgentWait> time = TRY(makeWait(options));
    // Watched before it is read: what is scheduled in between is not missed.
    PathWatch zoneWatch = TRY(PathWatch::make(zoneFiles()));
    time->readZone();
    PathWatch scheduleWatch = TRY(PathWatch::make({joinPath(paths.state, NotificationSchedule::kFileName)}));
    const std::unique_ptr<Surroundings> surroundings = TRY(makeSurroundings(options, *time));

    NotificationSchedule schedule(files, classes, paths.state);
    DeliveryRecord record(files, classes, paths.state);
    ProgramRefresher refresher([&] { return refreshCommand(options, *time); });
    Agent agent({schedule, record, *time, surroundings->display(), surroundings->link(), ownClaimant(), isClaimantAlive},
                refresher);
    FilesSource zone(std::move(zoneWatch), [&] {
        time->readZone();
        agent.needWake();
    });
    FilesSource changes(std::move(scheduleWatch), [&] { agent.needWake(); });
    EventLoop loop;
    for (EventSource* source : {static_cast<EventSource*>(time.get()), static_cast<EventSource*>(&zone),
                                static_cast<EventSource*>(&changes), static_cast<EventSource*>(&refresher)}) {
        loop.add(*source);
    }
    if (EventSource* const events = surroundings->events()) loop.add(*events);
    IdleEnd idle(*time, [&] { return agent.isNeeded() || !options.drivenClock.empty(); });
    loop.add(idle);
    if (!TRY(surroundings->serve(agent))) {
        logError("dayward-agent: another agent of this home runs");
        return {};
    }
    while (!surroundings->isOver() && !idle.isOver()) {
        while (agent.wantsWake()) agent.wake();
        time->arm({agent.nextMoment(), agent.retryAfter(), agent.isFetching()});
        loop.waitOnce();
        if (time->takeRung()) agent.needWake();
    }
    return {};
}

}  // namespace

int runAgent(const AgentOptions& options) {
    // A file that may not grow, or a reader that is gone, is an error like any other.
    std::signal(SIGXFSZ, SIG_IGN);
    std::signal(SIGPIPE, SIG_IGN);
    const auto ran = run(options);
    if (ran) return 0;
    logError("dayward-agent: " + ran.error().description());
    return 1;
}

}  // namespace dayward

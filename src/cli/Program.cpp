#include "cli/Program.h"

#include <fcntl.h>
#include <unistd.h>

#include <CLI/CLI.hpp>
#include <cstdlib>
#include <filesystem>
#include <iostream>

#include "Classes/App/AppInfo.h"
#include "Classes/App/AppManager.h"
#include "Classes/App/ArchiveRegistration.h"
#include "Classes/Event/EventLocalStore.h"
#include "agent/desktop/AgentNotifications.h"
#include "alerts/NotificationsManager.h"
#include "alerts/WidgetExport.h"
#include "cli/Command.h"
#include "cli/ProgramArguments.h"
#include "cli/ProgramVersion.h"
#include "cli/RefreshSchedule.h"
#include "cli/Terminal.h"
#include "platform/Environment.h"
#include "platform/FileSystem.h"
#include "platform/linux/LinuxEnvironment.h"

namespace dayward {

namespace {

enum Exit { done = 0, failed = 1, wrongUsage = 2 };

std::filesystem::path programDirectory() {
    std::error_code error;
    return std::filesystem::read_symlink("/proc/self/exe", error).parent_path();
}

/// Beside the program: PREFIX/bin/dayward has PREFIX/share/dayward.
std::string resourceDirectory() { return (programDirectory().parent_path() / "share" / "dayward").string(); }

/// Whoever schedules starts what fires it; not for a clock that nobody else has.
void keepAgent(Environment::Services& services, const GlobalOptions& options) {
    if (!options.now.empty()) return;
    services.localNotifications =
        std::make_shared<AgentNotifications>(std::move(services.localNotifications), agentOf(options));
}

/// One line, whatever the user's texts and file names in it hold.
void complain(const std::string& line) { std::cerr << "dayward: " << printable(line) << std::endl; }

/// Takes the numbers of standard input, output and error that are closed, so that no file of the home gets
/// one and is written what was meant for the user. What stands there fails when it is used.
void occupyStandardDescriptors() {
    for (int descriptor : {STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO}) {
        if (fcntl(descriptor, F_GETFD) == -1) open("/dev/null", descriptor == STDIN_FILENO ? O_WRONLY : O_RDONLY);
    }
}

void declareGlobalOptions(CLI::App& app, GlobalOptions& options) {
    app.add_option("--home", options.home, "Keep everything in this directory");
    app.add_option("--now", options.now, "Answer as of this local time");
    app.add_option("--tz", options.zone, "The time zone, such as Europe/Moscow");
    app.add_option("--locale", options.locale, "Language and region, such as ru_RU");
    app.add_flag("--json", options.json, "Print one JSON document");
    app.set_version_flag("--version", std::string(kProgramVersion));
    app.fallthrough();
    app.require_subcommand(0, 1);
}

void addCommands(CLI::App& app, ChosenCommand& chosen) {
    addListCommand(app, chosen);
    addShowCommand(app, chosen);
    addAddCommand(app, chosen);
    addEditCommand(app, chosen);
    addRemoveCommand(app, chosen);
    addWatchCommand(app, chosen);
    addCategoriesCommand(app, chosen);
    addSettingsCommand(app, chosen);
    addRuleCommand(app, chosen);
    addIntervalCommand(app, chosen);
    addDocumentCommand(app, chosen);
    addNotificationsCommand(app, chosen);
    addMissedCommand(app, chosen);
    addBadgeCommand(app, chosen);
    addDoctorCommand(app, chosen);
    addWidgetCommand(app, chosen);
}

/// The environment's options, or nothing after a complaint about wrong usage.
std::optional<LinuxOptions> linuxOptions(const GlobalOptions& options, bool live) {
    LinuxOptions result;
    if (!options.home.empty()) {
        auto home = absolutePath(options.home);
        if (!home) {
            complain("--home: " + home.error().description());
            return std::nullopt;
        }
        result.home = *std::move(home);
    }
    result.resources = resourceDirectory();
    result.zone = options.zone;
    result.locale = options.locale;
    result.archiveClasses = allArchiveClasses();
    const auto now = givenNow(options.now, options.zone);
    if (!now) {
        complain(now.error().description());
        return std::nullopt;
    }
    if (!live) {
        result.fixedNow = *now;
    } else if (*now) {
        result.shift = **now - SystemClock().now();
    }
    return result;
}

/// Says which documents are not shown, and why: they stay on the disk.
void reportLeftOut() {
    for (const EventLocalStore::LeftOut& left : EventLocalStore::shared().leftOut()) {
        complain("left out " + left.path + ": " + left.reason);
    }
}

Result<> perform(Environment& environment, const ChosenCommand& chosen, const GlobalOptions& options) {
    if (chosen.needsStore) {
        CCApp::setInformation(AppInfo::information(kProgramVersion));
        NotificationsManager::followStore();
        TRY_VOID(AppManager::performFirstLaunch());
        reportLeftOut();
    }
    const Result<> result = chosen.action(environment, options);
    Result<> scheduled;
    if (chosen.changesEvents) {
        scheduled = scheduleChanges();
    } else if (chosen.needsStore) {
        scheduled = NotificationsManager::flush();
    }
    // What the command was to do is done: a second try would do it twice, and the agent schedules once a day.
    if (result && !scheduled) complain("alerts could not be scheduled: " + scheduled.error().description());
    if (result && chosen.changesEvents) WidgetExport().exportEvents();
    return result;
}

int run(const ChosenCommand& chosen, const GlobalOptions& options, bool live) {
    const auto environmentOptions = linuxOptions(options, live);
    if (!environmentOptions) return wrongUsage;
    auto services = makeLinuxServices(*environmentOptions);
    if (!services) {
        complain(services.error().description());
        return failed;
    }
    // A command that ends at once has no use for what changes meanwhile.
    if (!live) services->watcher = nullptr;
    keepAgent(*services, options);
    Environment environment(std::move(*services));
    const EnvironmentScope scope(&environment);
    const Result<> result = perform(environment, chosen, options);
    std::cout.flush();
    if (!result) {
        complain(result.error().description());
        return failed;
    }
    if (!std::cout) {
        complain("standard output cannot be written");
        return failed;
    }
    return chosen.exitStatus;
}

/// Opens the application where it is installed and there is a display; returns only where it did not.
void openApplication(const GlobalOptions& options) {
    if (std::getenv("DISPLAY") == nullptr && std::getenv("WAYLAND_DISPLAY") == nullptr) return;
    std::error_code error;
    const auto program = programDirectory() / "dayward-app";
    if (!std::filesystem::exists(program, error)) return;
    if (const auto home = absolutePath(options.home)) setenv("DAYWARD_HOME", home->c_str(), 1);
    const std::string path = program.string();
    execl(path.c_str(), path.c_str(), static_cast<char*>(nullptr));
}

}  // namespace

AgentClient agentOf(const GlobalOptions& options) {
    return AgentClient(BusHome::of(options.home), programDirectory().string());
}

int runProgram(int argc, char** argv) {
    occupyStandardDescriptors();
    std::ios::sync_with_stdio(false);
    CLI::App app("Countdowns and reminders: what you wait for and must not miss.", "dayward");
    GlobalOptions options;
    ChosenCommand chosen;
    declareGlobalOptions(app, options);
    addCommands(app, chosen);
    if (const auto status = parseArguments(app, argc, argv)) return *status;
    const bool live = app.get_subcommands().empty() || app.got_subcommand("watch");
    if (!chosen.action) {
        openApplication(options);
        chosen.action = watchList;
    }
    return run(chosen, options, live);
}

}  // namespace dayward

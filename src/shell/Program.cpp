#include "shell/Program.h"

#include <CLI/CLI.hpp>
#include <QGuiApplication>
#include <QQuickWindow>
#include <filesystem>
#include <iostream>

#include "Classes/App/ArchiveRegistration.h"
#include "Classes/App/FirstLaunch.h"
#include "Classes/Interface/Edit/EventEditViewController.h"
#include "Classes/Interface/Info/SettingsViewController.h"
#include "Classes/Settings/InterfaceSettings.h"
#include "cli/ProgramVersion.h"
#include "platform/FileSystem.h"
#include "platform/Strings.h"
#include "platform/UserDefaults.h"
#include "platform/linux/AsioQueues.h"
#include "platform/linux/LinuxEnvironment.h"
#include "shell/QtAudioDevice.h"
#include "shell/QtMainLoop.h"
#include "shell/Window.h"

namespace dayward {

namespace {

enum Exit { done = 0, failed = 1, wrongUsage = 2 };

std::string resourceDirectory() {
    std::error_code error;
    const auto program = std::filesystem::read_symlink("/proc/self/exe", error);
    return (program.parent_path().parent_path() / "share" / "dayward").string();
}

void complain(const std::string& line) { std::cerr << "dayward-app: " << line << std::endl; }

Result<Environment::Services> makeServices(const std::string& home, std::shared_ptr<Queues> queues) {
    LinuxOptions options;
    options.home = home;
    options.resources = resourceDirectory();
    options.archiveClasses = allArchiveClasses();
    options.queues = std::move(queues);
    options.logName = "dayward-app";
    Environment::Services services = TRY(makeLinuxServices(options));
    services.audio = std::make_shared<QtAudioDevice>();
    return services;
}

int runWindow(QGuiApplication& application, Environment& environment) {
    const CCApp::Information information{.bundleIdentifier = "dayward",
                                         .displayName = "Dayward",
                                         .shortVersion = kProgramVersion,
                                         .bundleVersion = kProgramVersion};
    if (const auto launched = performFirstLaunchIfNeeded(environment, information); !launched) {
        complain(launched.error().description());
        return failed;
    }
    Window window(environment);
    if (window.quickWindow() == nullptr) return failed;
    window.shell().navigation().setRoot(std::make_shared<SettingsViewController>(SettingsViewController::Services{}));
    window.quickWindow()->show();
    window.shell().navigation().present(std::make_shared<EventEditViewController>());
    return application.exec();
}

}  // namespace

int runApplication(int argc, char** argv) {
    prepareQt();
    QGuiApplication application(argc, argv);
    CLI::App options("Countdowns and reminders: what you wait for and must not miss.", "dayward-app");
    std::string home;
    options.add_option("--home", home, "Keep everything in this directory");
    options.set_version_flag("--version", std::string(kProgramVersion));
    try {
        options.parse(argc, argv);
    } catch (const CLI::ParseError& error) {
        if (error.get_exit_code() == static_cast<int>(CLI::ExitCodes::Success)) return options.exit(error);
        complain(std::string(error.what()) + "; try --help");
        return wrongUsage;
    }
    const auto queues = std::make_shared<AsioQueues>();
    auto services = makeServices(home, queues);
    if (!services) {
        complain(services.error().description());
        return failed;
    }
    Environment environment(std::move(*services));
    const EnvironmentScope scope(&environment);
    const QtMainLoop loop(queues->mainLoop());
    return runWindow(application, environment);
}

}  // namespace dayward

#include "shell/Program.h"

#include <CLI/CLI.hpp>
#include <QGuiApplication>
#include <QTemporaryDir>
#include <algorithm>
#include <filesystem>
#include <iostream>

#include "Classes/App/AppInfo.h"
#include "Classes/App/ArchiveRegistration.h"
#include "Classes/App/LaunchArguments.h"
#include "Classes/Settings/InterfaceSettings.h"
#include "agent/desktop/AgentDevice.h"
#include "agent/desktop/AgentNotifications.h"
#include "agent/desktop/BusNames.h"
#include "cli/ProgramArguments.h"
#include "cli/ProgramVersion.h"
#include "platform/FileSystem.h"
#include "platform/Strings.h"
#include "platform/UserDefaults.h"
#include "platform/linux/AsioQueues.h"
#include "platform/linux/LinuxEnvironment.h"
#include "shell/Activation.h"
#include "shell/Life.h"
#include "shell/NotificationPort.h"
#include "shell/QtAudioDevice.h"
#include "shell/QtMainLoop.h"
#include "shell/QtStart.h"
#include "shell/QtWindow.h"
#include "shell/SelfTest.h"
#include "shell/SingleInstance.h"

namespace dayward {

namespace {

enum Exit { done = 0, failed = 1, wrongUsage = 2 };

constexpr const char* kName = "dayward-app";

struct Options {
    std::string home;
    bool selfTest = false;
    std::vector<std::string> launch;
    QVariantMap activation;
};

std::filesystem::path programDirectory() {
    std::error_code error;
    return std::filesystem::read_symlink("/proc/self/exe", error).parent_path();
}

std::string resourceDirectory() { return (programDirectory().parent_path() / "share" / "dayward").string(); }

void complain(const std::string& line) { std::cerr << kName << ": " << line << std::endl; }

/// The language that the user chose in the settings takes the place of the system's.
Result<Environment::Services> inChosenLanguage(LinuxOptions options) {
    Environment::Services services = TRY(makeLinuxServices(options));
    const auto language = services.standardDefaults->stringForKey(InterfaceSettings::kLanguageKey);
    const auto& known = InterfaceSettings::languages();
    if (!language || services.locale.languageCode() == *language || std::ranges::find(known, *language) == known.end())
        return services;
    services.locale = InterfaceSettings::localeInLanguage(services.locale, *language);
    services.strings = TRY(Strings::load(*services.files, joinPath(services.paths.resources, "strings"), *language));
    return services;
}

Result<Environment::Services> makeServices(const std::string& home, std::shared_ptr<Queues> queues) {
    LinuxOptions options;
    options.home = home;
    options.resources = resourceDirectory();
    options.archiveClasses = allArchiveClasses();
    options.queues = std::move(queues);
    options.logName = "dayward-app";
    Environment::Services services = TRY(inChosenLanguage(std::move(options)));
    services.audio = std::make_shared<QtAudioDevice>();
    return services;
}

QStringList qtArguments(const std::vector<std::string>& arguments) {
    QStringList list;
    for (const std::string& argument : arguments) list.append(QString::fromStdString(argument));
    return list;
}

int run(const Options& options, const LaunchOptions& launch) {
    const QTemporaryDir scratch;
    const BusHome home = BusHome::of(options.home);
    NotificationPort port(home.directory);
    SingleInstance instance(QString::fromStdString(applicationBusName(home)));
    if (!options.selfTest) port.registerObject();
    if (!options.selfTest &&
        instance.begin(qtArguments(options.launch), options.activation) == SingleInstance::Role::later) {
        return done;
    }
    const auto queues = std::make_shared<AsioQueues>();
    auto services = makeServices(options.selfTest ? scratch.path().toStdString() : options.home, queues);
    if (!services) {
        complain(services.error().description());
        return failed;
    }
    const AgentClient agent(home, programDirectory().string());
    const auto scheduled = std::make_shared<AgentNotifications>(services->localNotifications, agent);
    if (!options.selfTest) services->localNotifications = scheduled;
    Life life(*services);
    Environment environment(std::move(*services));
    const EnvironmentScope scope(&environment);
    const QtMainLoop loop(queues->mainLoop());
    CCApp::setInformation(AppInfo::information(kProgramVersion));
    if (options.selfTest) return passesSelfTest(environment) ? done : failed;
    queues->global().async([scheduled] { scheduled->keepAgent(); });
    return life.run(environment, launch, {instance, port, std::make_shared<AgentDevice>(agent)}) ? done : failed;
}

}  // namespace

int runApplication(int argc, char** argv) {
    CLI::App parser("Countdowns and reminders: what you wait for and must not miss.", kName);
    Options options;
    parser.add_option("--home", options.home, "Keep everything in this directory");
    parser.add_flag("--self-test", options.selfTest, "Load every screen, then end");
    parser.set_version_flag("--version", std::string(kProgramVersion));
    parser.allow_extras();
    if (const auto status = parseArguments(parser, argc, argv)) return *status;
    options.launch = parser.remaining();
    const auto launch = launchOptionsFromArguments(options.launch);
    if (!launch) {
        complain(launch.error().description() + "; try --help");
        return wrongUsage;
    }
    options.activation = activationOfStart();
    prepareQt();
    const auto application = makeQtApplication(kName, argc, argv);
    return run(options, *launch);
}

}  // namespace dayward

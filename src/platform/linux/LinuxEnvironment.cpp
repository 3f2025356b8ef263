#include "platform/linux/LinuxEnvironment.h"

#include <array>

#include "platform/FileCoordinator.h"
#include "platform/NotificationCenter.h"
#include "platform/Strings.h"
#include "platform/UserDefaults.h"
#include "platform/linux/AsioQueues.h"
#include "platform/linux/InotifyWatcher.h"
#include "platform/linux/LinuxFileSystem.h"
#include "platform/linux/ScheduledNotifications.h"
#include "platform/linux/SpdlogLog.h"

namespace dayward {

namespace {

Result<> prepareDirectories(FileSystem& files, const Paths& paths) {
    for (const std::string* directory : {&paths.documents, &paths.library, &paths.applicationSupport, &paths.caches,
                                         &paths.config, &paths.state, &paths.group}) {
        TRY_VOID(files.createDirectories(*directory));
        removeStaleTemporaries(files, *directory);
    }
    return {};
}

std::shared_ptr<Clock> makeClock(const LinuxOptions& options) {
    if (options.fixedNow) return std::make_shared<FixedClock>(*options.fixedNow);
    return std::make_shared<SystemClock>(options.shift);
}

Result<TimeZone> chooseZone(const std::string& name) {
    if (name.empty()) return TimeZone::system();
    return TimeZone::named(name);
}

}  // namespace

Result<Environment::Services> makeLinuxServices(const LinuxOptions& options) {
    Environment::Services services;
    services.zone = TRY(chooseZone(options.zone));
    services.locale = options.locale.empty() ? Locale::system() : Locale(options.locale);
    services.clock = makeClock(options);
    services.files = std::make_shared<LinuxFileSystem>();
    services.paths = Paths::resolve(options.home, options.resources);
    TRY_VOID(prepareDirectories(*services.files, services.paths));
    services.strings = TRY(
        Strings::load(*services.files, joinPath(services.paths.resources, "strings"), services.locale.languageCode()));
    services.coordinator = std::make_shared<FileCoordinator>(services.files, joinPath(services.paths.state, "locks"));
    services.watcher = std::make_shared<InotifyWatcher>();
    services.notifications = std::make_shared<NotificationCenter>();
    services.archiveClasses = options.archiveClasses;
    services.standardDefaults = std::make_shared<UserDefaults>(services.files, services.archiveClasses,
                                                               joinPath(services.paths.config, "standard.defaults"));
    services.groupDefaults = std::make_shared<UserDefaults>(services.files, services.archiveClasses,
                                                            joinPath(services.paths.group, "group.defaults"));
    services.localNotifications = std::make_shared<ScheduledNotifications>(
        NotificationSchedule(services.files, services.archiveClasses, services.paths.state));
    services.log = std::make_shared<SpdlogLog>(SpdlogLog::Options{
        joinPath(services.paths.state, options.logName + ".log"), options.errorsToStandardError, options.debugLog});
    services.queues = options.queues ? options.queues : std::make_shared<AsioQueues>();
    return services;
}

}  // namespace dayward

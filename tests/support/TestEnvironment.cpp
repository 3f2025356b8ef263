#include "support/TestEnvironment.h"
#include "support/TestPaths.h"

#include <cstdio>
#include <filesystem>
#include <map>

#include "platform/Archivable.h"
#include "platform/Color.h"
#include "platform/DirectoryWatch.h"
#include "platform/FatalError.h"
#include "platform/FileCoordinator.h"
#include "platform/FileSystem.h"
#include "platform/NotificationCenter.h"
#include "platform/Strings.h"
#include "platform/UserDefaults.h"
#include "platform/linux/LinuxFileSystem.h"

namespace dayward {

namespace {

constexpr const char* kHomeInGivenFiles = "/home/test/dayward";

std::string makeFreshDirectory() {
    std::string path = (std::filesystem::temp_directory_path() / "dayward-test-XXXXXX").string();
    if (::mkdtemp(path.data()) == nullptr) fatalError("no fresh directory for the test: " + path);
    return path;
}

void createHome(FileSystem* given, const Paths& paths) {
    for (const std::string* directory : {&paths.documents, &paths.library, &paths.applicationSupport, &paths.caches,
                                         &paths.config, &paths.state, &paths.group}) {
        if (given == nullptr) {
            // Without syncing anything: thousands of tests make a home.
            std::filesystem::create_directories(*directory);
        } else if (const auto made = given->createDirectories(*directory); !made) {
            fatalError(made.error().description());
        }
    }
}

std::shared_ptr<const ArchiveClasses> platformClasses() {
    auto classes = std::make_shared<ArchiveClasses>();
    registerColorClass(*classes);
    return classes;
}

TimeZone zoneNamed(const std::string& name) {
    auto zone = TimeZone::named(name);
    if (!zone) fatalError("no such zone: " + name);
    return *zone;
}

/// The string tables of the source tree, read once a language; none where a test stands below them.
std::shared_ptr<const Strings> loadStrings(const Locale& locale) {
    static Mutex mutex;
    static std::map<std::string, std::shared_ptr<const Strings>> loaded;
    const Lock lock(mutex);
    auto& known = loaded[locale.languageCode()];
    if (known) return known;
    const LinuxFileSystem files;
    auto strings = Strings::load(files, joinPath(testResources(), "strings"), locale.languageCode());
    return known = strings ? *strings : std::make_shared<const Strings>();
}

Date localInstant(const TimeZone& zone, std::string_view text) {
    int year = 0;
    int month = 0;
    int day = 0;
    int hour = 0;
    int minute = 0;
    double second = 0;
    const int count =
        std::sscanf(std::string(text).c_str(), "%d-%d-%dT%d:%d:%lf", &year, &month, &day, &hour, &minute, &second);
    if (count != 3 && count != 5 && count != 6) fatalError("not a local time: " + std::string(text));
    const Calendar::Fields fields{year, month, day, hour, minute, 0};
    return Calendar(zone).date(fields) + TimeInterval(second);
}

}  // namespace

void TestLog::error(std::string_view line) {
    const Lock lock(mutex_);
    errors_.emplace_back(line);
}

void TestLog::debug(std::string_view line) {
    const Lock lock(mutex_);
    debugLines_.emplace_back(line);
}

std::vector<std::string> TestLog::errors() const {
    const Lock lock(mutex_);
    return errors_;
}

std::vector<std::string> TestLog::debugLines() const {
    const Lock lock(mutex_);
    return debugLines_;
}

TestEnvironment::TestEnvironment() : TestEnvironment(Options()) {}

TestEnvironment::TestEnvironment(Options options) : home(options.home), log(std::make_shared<TestLog>()) {
    const TimeZone zone = zoneNamed(options.zone);
    auto fixedClock = std::make_shared<FixedClock>(localInstant(zone, options.now));
    if (!options.clock) clock = fixedClock;
    if (!options.queues) queues = std::make_shared<ManualQueues>(fixedClock);
    if (home.empty()) {
        // On the disk no two tests may meet, whoever made the file system.
        ownsHome_ = !options.files || dynamic_cast<LinuxFileSystem*>(options.files.get()) != nullptr;
        home = ownsHome_ ? makeFreshDirectory() : kHomeInGivenFiles;
    }

    Environment::Services services;
    services.clock = options.clock ? options.clock : fixedClock;
    services.watcher = options.watcher;
    services.audio = options.audio;
    services.localNotifications = options.localNotifications;
    services.queues = options.queues ? options.queues : queues;
    services.files = options.files ? options.files : std::make_shared<LinuxFileSystem>();
    services.archiveClasses = options.archiveClasses ? options.archiveClasses : platformClasses();
    services.paths = Paths::resolve(home, options.resources.empty() ? testResources() : options.resources);
    services.coordinator = std::make_shared<FileCoordinator>(services.files, joinPath(services.paths.state, "locks"));
    services.notifications = std::make_shared<NotificationCenter>();
    services.log = log;
    services.zone = zone;
    services.locale = Locale(options.locale);
    services.strings = loadStrings(services.locale);
    createHome(options.files.get(), services.paths);
    services.standardDefaults = std::make_shared<UserDefaults>(services.files, services.archiveClasses,
                                                               joinPath(services.paths.config, "standard.defaults"));
    services.groupDefaults = std::make_shared<UserDefaults>(services.files, services.archiveClasses,
                                                            joinPath(services.paths.group, "group.defaults"));
    environment = std::make_unique<Environment>(std::move(services));
    scope_ = std::make_unique<EnvironmentScope>(environment.get());
}

TestEnvironment::~TestEnvironment() {
    environment.reset();
    scope_.reset();
    if (!ownsHome_) return;
    std::error_code ignored;
    std::filesystem::remove_all(home, ignored);
}

Date TestEnvironment::at(std::string_view localTime) const { return localInstant(environment->timeZone(), localTime); }

std::string TestEnvironment::text(Date date) const {
    const auto fields = environment->calendar()->fields(date);
    char text[64];
    std::snprintf(text, sizeof text, "%04lld-%02d-%02dT%02d:%02d:%02d", static_cast<long long>(fields.year),
                  fields.month, fields.day, fields.hour, fields.minute, fields.second);
    return text;
}

}  // namespace dayward

#include "Classes/Settings/AppSettings.h"

#include "Submodules/CorpLibrary2/App/Analytics.h"
#include "platform/Environment.h"
#include "platform/FailedSave.h"
#include "platform/FileSystem.h"
#include "platform/NotificationCenter.h"
#include "platform/UserDefaults.h"

namespace dayward {

namespace {

using Keys = AppSettings::Keys;

/// Empty where any element is no string: then the value is of a wrong type.
std::vector<std::string> stringsIn(const Object& object) {
    std::vector<std::string> strings;
    if (!object.array()) return {};
    for (const auto& element : *object.array()) {
        if (!element.string()) return {};
        strings.push_back(*element.string());
    }
    return strings;
}

/// Nothing where it is no array of intervals throughout.
std::optional<std::vector<XDIDateInterval>> intervalsIn(const Object& object) {
    std::vector<XDIDateInterval> intervals;
    if (!object.array()) return std::nullopt;
    for (const auto& element : *object.array()) {
        const auto interval = element.as<XDIDateInterval>();
        if (!interval) return std::nullopt;
        intervals.push_back(*interval);
    }
    return intervals;
}

/// Also where the device does not tell: the defaults must not replace choices that cannot be read now.
bool mayExist(FileSystem& files, const std::string& path) {
    const auto status = files.status(path);
    return !status || *status;
}

/// While it is held no other process seeds the file; null where there is nothing to seed, or no lock to be had.
std::unique_ptr<FileLock> lockToSeed(Environment& environment, const std::string& path) {
    FileSystem& files = environment.files();
    const std::string directory = joinPath(environment.paths().state, "locks");
    if (mayExist(files, path) || !files.createDirectories(directory)) return nullptr;
    auto lock = files.lock(joinPath(directory, lastPathComponent(path) + ".seeding"), true);
    return lock ? std::move(*lock) : nullptr;
}

Array arrayOf(const std::vector<XDIDateInterval>& intervals) {
    Array array;
    for (const auto& interval : intervals) array.push_back(std::make_shared<XDIDateInterval>(interval));
    return array;
}

}  // namespace

AppSettings::AppSettings(Environment& environment)
    : environment_(environment),
      path_(joinPath(environment.paths().applicationSupport, kFileName)),
      seedingLock_(lockToSeed(environment, path_)),
      existed_(mayExist(environment.files(), path_)),
      storage_(KeyStorageFile{path_}) {
    storage_.setWriteFailureHandler(
        [&environment](const Error& error) { tellFailedSave(environment, nullptr, error); });
}

AppSettings::~AppSettings() = default;

AppSettings& AppSettings::shared() {
    auto& settings = Environment::current().shared<AppSettings>();
    settings.prepare();
    return settings;
}

void AppSettings::prepare() {
    const Lock lock(prepareMutex_);
    if (prepared_) return;
    // Before the seeding: an observer of a seeded value may ask for the settings.
    prepared_ = true;
    if (!existed_) {
        setDefaultValues();
        importOldValues();
        // Now: a process that waits for the lock must find the file.
        static_cast<void>(storage_.write());
    }
    seedingLock_.reset();
}

void AppSettings::setDefaultValues() {
    storeTableSortType(0);
    storeTableCellIconShow(true);
    storeDefaultTime(0);
    storeDefaultIntervalFormat(HHEventDateFormat());
    storeDefaultAlerts({});
    storeDefaultSoundName(std::nullopt);
}

void AppSettings::importOldValues() {
    const std::string path = joinPath(environment_.paths().applicationSupport, kOldFileName);
    if (!environment_.files().exists(path)) return;
    const CCKeyStorage old(KeyStorageFile{path});
    if (const auto type = old.valueForKey(Keys::tableSortType).integer()) storeTableSortType(*type);
    if (const auto show = old.valueForKey(Keys::tableCellIconShow).boolean()) storeTableCellIconShow(*show);
    if (const auto time = old.valueForKey(Keys::defaultTime).integer()) storeDefaultTime(*time);
    const auto format = old.valueForKey(Keys::defaultIntervalFormat).as<HHEventDateFormat>();
    if (format) storeDefaultIntervalFormat(*format);
    if (const auto alerts = intervalsIn(old.valueForKey(Keys::defaultAlerts))) storeDefaultAlerts(*alerts);
    if (const auto sound = old.valueForKey(Keys::defaultSoundName).stringValue()) storeDefaultSoundName(sound);
}

void AppSettings::store(const char* key, Object value, const char* property, Object reported) {
    storage_.setValue(std::move(value), key);
    Analytics::report("default", "set", {{"property_name", property}, {"property_value", std::move(reported)}});
}

bool AppSettings::TouchIDOn() { return Environment::current().standardDefaults().boolForKey(Keys::touchIDOn); }

void AppSettings::setTouchIDOn(bool on) {
    Environment& environment = Environment::current();
    environment.standardDefaults().setObject(on, Keys::touchIDOn);
    saveDefaults(environment, environment.standardDefaults());
}

std::int64_t AppSettings::tableSortType() {
    return shared().storage_.valueForKey(Keys::tableSortType).integer().value_or(0);
}

void AppSettings::setTableSortType(std::int64_t type) { shared().storeTableSortType(type); }

void AppSettings::storeTableSortType(std::int64_t type) {
    store(Keys::tableSortType, type, "tableSortType", type);
    environment_.notifications().post(kTableSortDidUpdateNotification, this);
}

std::vector<std::string> AppSettings::tableSortIdentifiers() {
    return stringsIn(shared().storage_.valueForKey(Keys::tableSortIdentifiers));
}

void AppSettings::setTableSortIdentifiers(const std::vector<std::string>& identifiers) {
    shared().storage_.setValue(Array(identifiers.begin(), identifiers.end()), Keys::tableSortIdentifiers);
}

bool AppSettings::tableCellIconShow() {
    return shared().storage_.valueForKey(Keys::tableCellIconShow).boolean().value_or(true);
}

void AppSettings::setTableCellIconShow(bool show) { shared().storeTableCellIconShow(show); }

void AppSettings::storeTableCellIconShow(bool show) {
    store(Keys::tableCellIconShow, show, "iconShow", show ? "YES" : "NO");
}

std::int64_t AppSettings::defaultTime() {
    return shared().storage_.valueForKey(Keys::defaultTime).integer().value_or(0);
}

void AppSettings::setDefaultTime(std::int64_t minutes) { shared().storeDefaultTime(minutes); }

void AppSettings::storeDefaultTime(std::int64_t minutes) { store(Keys::defaultTime, minutes, "time", minutes); }

HHEventDateFormat AppSettings::defaultIntervalFormat() {
    const auto format = shared().storage_.valueForKey(Keys::defaultIntervalFormat).as<HHEventDateFormat>();
    return format ? *format : HHEventDateFormat();
}

void AppSettings::setDefaultIntervalFormat(const HHEventDateFormat& format) {
    shared().storeDefaultIntervalFormat(format);
}

void AppSettings::storeDefaultIntervalFormat(const HHEventDateFormat& format) {
    const auto record = std::make_shared<HHEventDateFormat>(format);
    store(Keys::defaultIntervalFormat, record, "intervalFormat", record);
}

std::vector<XDIDateInterval> AppSettings::defaultAlerts() {
    return intervalsIn(shared().storage_.valueForKey(Keys::defaultAlerts)).value_or(std::vector<XDIDateInterval>());
}

void AppSettings::setDefaultAlerts(const std::vector<XDIDateInterval>& alerts) { shared().storeDefaultAlerts(alerts); }

void AppSettings::storeDefaultAlerts(const std::vector<XDIDateInterval>& alerts) {
    const Array array = arrayOf(alerts);
    store(Keys::defaultAlerts, array, "alerts", array);
}

std::optional<std::string> AppSettings::defaultSoundName() {
    return shared().storage_.valueForKey(Keys::defaultSoundName).stringValue();
}

void AppSettings::setDefaultSoundName(const std::optional<std::string>& name) { shared().storeDefaultSoundName(name); }

void AppSettings::storeDefaultSoundName(const std::optional<std::string>& name) {
    store(Keys::defaultSoundName, name, "sound", name);
}

Object AppSettings::old_defaultBackgroundTpl() { return shared().storage_.valueForKey(Keys::defaultBackground); }

Object AppSettings::old_defaultBackgroundInfo() { return shared().storage_.valueForKey(Keys::defaultBackgroundInfo); }

std::optional<std::string> AppSettings::old_defaultFontName() {
    return shared().storage_.valueForKey(Keys::defaultFontName).stringValue();
}

std::optional<Color> AppSettings::old_defaultTextColor() {
    return colorOf(shared().storage_.valueForKey(Keys::defaultTextColor));
}

std::optional<bool> AppSettings::old_appBadgeShow() {
    return shared().storage_.valueForKey(Keys::appBadgeShow).boolean();
}

Dictionary AppSettings::values() { return shared().storage_.values(); }

Result<> AppSettings::synchronize() {
    TRY_VOID(shared().storage_.write());
    return Environment::current().standardDefaults().synchronize();
}

void AppSettings::retryFailedWrites() {
    shared().storage_.retryFailedWrite();
    UserDefaults& defaults = Environment::current().standardDefaults();
    if (defaults.hasChanges()) static_cast<void>(defaults.synchronize());
}

}  // namespace dayward

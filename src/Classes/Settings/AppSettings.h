// The user's choices: the list's order and looks, what a new event starts with, the launch lock.
//
// They live in a key storage over "HHSettings" in the application support directory; only the launch
// lock is in the standard defaults. When there is no such file yet, the first use seeds it at once,
// first with the defaults, then with what an old "HHUserSettings" holds; one process does. A value of a wrong type
// reads as the default. Class operations act on the current environment's settings. Any thread.
#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "Classes/Other/Date/HHEventDateFormat.h"
#include "Submodules/CorpLibrary2/Foundation/CCKeyStorage.h"
#include "intervals/XDIDateInterval.h"
#include "platform/Color.h"
#include "platform/Mutex.h"
#include "platform/Object.h"
#include "platform/Result.h"

namespace dayward {

class Environment;
class FileLock;

class AppSettings {
public:
    static constexpr const char* kFileName = "HHSettings";
    static constexpr const char* kOldFileName = "HHUserSettings";
    /// Posted without user info when the sort mode is set.
    static constexpr const char* kTableSortDidUpdateNotification = "SettingsTableSortDidUpdateNotification";

    /// The stored keys.
    struct Keys {
        static constexpr const char* touchIDOn = "TouchIDOn";  ///< in the standard defaults
        static constexpr const char* appBadgeShow = "app-badge-show";
        static constexpr const char* tableSortType = "table-sort-type";
        static constexpr const char* tableSortIdentifiers = "table-sort-ids";
        static constexpr const char* tableCellIconShow = "table-cell-icon-show";
        static constexpr const char* defaultTime = "event-def-time";
        static constexpr const char* defaultIntervalFormat = "event-def-date-format";
        static constexpr const char* defaultAlerts = "event-def-alerts";
        static constexpr const char* defaultSoundName = "event-def-sound-name";
        static constexpr const char* defaultBackground = "event-def-background";
        static constexpr const char* defaultBackgroundInfo = "event-def-background-info";
        static constexpr const char* defaultFontName = "event-def-font-name";
        static constexpr const char* defaultTextColor = "event-def-text-color";
    };

    /// The launch lock's switch. The setter writes the defaults at once.
    static bool TouchIDOn();
    static void setTouchIDOn(bool on);

    /// The list's sort mode as stored: 0 by date, 1 by name, 2 by hand.
    static std::int64_t tableSortType();
    /// Posts kTableSortDidUpdateNotification.
    static void setTableSortType(std::int64_t type);
    /// The order made by hand: event keys, first row first.
    static std::vector<std::string> tableSortIdentifiers();
    static void setTableSortIdentifiers(const std::vector<std::string>& identifiers);
    static bool tableCellIconShow();
    static void setTableCellIconShow(bool show);

    // What a new event starts with.

    /// Minutes after midnight.
    static std::int64_t defaultTime();
    static void setDefaultTime(std::int64_t minutes);
    static HHEventDateFormat defaultIntervalFormat();
    static void setDefaultIntervalFormat(const HHEventDateFormat& format);
    static std::vector<XDIDateInterval> defaultAlerts();
    static void setDefaultAlerts(const std::vector<XDIDateInterval>& alerts);
    static std::optional<std::string> defaultSoundName();
    static void setDefaultSoundName(const std::optional<std::string>& name);

    // The look that earlier versions kept for all events; it seeds the default category. The first
    // two hold records of layers beside this one and come as stored; null where absent.

    static Object old_defaultBackgroundTpl();
    static Object old_defaultBackgroundInfo();
    static std::optional<std::string> old_defaultFontName();
    static std::optional<Color> old_defaultTextColor();

    /// The boolean under "app-badge-show", a choice of earlier versions.
    static std::optional<bool> old_appBadgeShow();

    /// Everything as stored, by the stored keys.
    static Dictionary values();
    /// Writes what waits for its write, the launch lock too. For a program that is about to end. After a
    /// failure the values wait for the next write.
    static Result<> synchronize();
    /// Writes what an earlier write failed to, the rest of the standard defaults too. That it fails again is
    /// logged, and not told again.
    static void retryFailedWrites();

    /// Opens the storage. Use the class operations.
    explicit AppSettings(Environment& environment);
    ~AppSettings();

private:
    static AppSettings& shared();
    void prepare();
    void setDefaultValues();
    void importOldValues();
    /// Sets a value under its key and reports it.
    void store(const char* key, Object value, const char* property, Object reported);
    void storeTableSortType(std::int64_t type);
    void storeTableCellIconShow(bool show);
    void storeDefaultTime(std::int64_t minutes);
    void storeDefaultIntervalFormat(const HHEventDateFormat& format);
    void storeDefaultAlerts(const std::vector<XDIDateInterval>& alerts);
    void storeDefaultSoundName(const std::optional<std::string>& name);

    Environment& environment_;
    const std::string path_;
    std::unique_ptr<FileLock> seedingLock_;  ///< until the file is seeded
    const bool existed_;
    CCKeyStorage storage_;
    RecursiveMutex prepareMutex_;
    bool prepared_ DAYWARD_GUARDED_BY(prepareMutex_) = false;
};

}  // namespace dayward

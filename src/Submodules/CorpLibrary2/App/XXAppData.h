// The older pair of files of the application about itself, in the private data directory:
// "XXAppData.values.dat", a dictionary, and "XXAppData.events.dat", an XXEventHistory. Changes stay
// in memory until they are written. Class operations act on the current environment's pair; any
// thread.
#pragma once

#include <optional>
#include <string>

#include "Submodules/CorpLibrary2/Foundation/XXEventHistory.h"
#include "platform/Mutex.h"
#include "platform/Object.h"

namespace dayward {

class Environment;

class XXAppData {
public:
    static constexpr const char* kValuesFileName = "XXAppData.values.dat";
    static constexpr const char* kEventsFileName = "XXAppData.events.dat";

    static XXAppData& instance();
    /// Reads both files again; one that is missing or cannot be read counts as empty.
    static void dataWithContentsOfFile();
    /// A failed write is logged.
    static void values_writeToFile();
    static void events_writeToFile();

    /// A null value removes the key.
    static void setValue(Object value, const std::string& forKey);
    static Object valueForKey(const std::string& key);
    static bool isExistsValueForKey(const std::string& key);
    static void removeAllValues();

    static void addEvent(const std::string& event);
    static void addEvent(const std::string& event, Date withDate);
    static std::size_t countEvent(const std::string& event, std::optional<Date> fromDate = {});
    static bool isExistsEvent(const std::string& event);
    static std::optional<Date> dateToFirstEvent(const std::string& event);
    static std::optional<Date> dateToLastEvent(const std::string& event);
    static void removeEvent(const std::string& event);
    static void removeAllEvents();

    /// Reads both files. Use the class operations.
    explicit XXAppData(Environment& environment);

private:
    void read();

    Environment& environment_;
    const std::string valuesPath_;
    const std::string eventsPath_;
    mutable Mutex mutex_;
    Dictionary values_ DAYWARD_GUARDED_BY(mutex_);
    XXEventHistory events_ DAYWARD_GUARDED_BY(mutex_);
};

}  // namespace dayward

// The application's own named values, kept in "CCAppValues.dat" of the library directory as the
// keyed archive of a dictionary. Class operations act on the current environment's values. Changes
// stay in memory until synchronize(), which also takes in the keys that another process changed
// since. Any thread.
#pragma once

#include <set>
#include <string>

#include "Submodules/CorpLibrary2/Foundation/MergedDictionary.h"
#include "platform/Mutex.h"
#include "platform/Object.h"
#include "platform/Result.h"

namespace dayward {

class Environment;

/// Keys of the values that the application keeps about itself.
struct CCAppValueKeys {
    static constexpr const char* previousAppVersion = "__previousAppVersion";
    static constexpr const char* astAppVersion = "__lastAppVersion";
};

class CCAppValues {
public:
    /// Loads the file, unless it is loaded already; the other operations do it on first use.
    static void initialize();
    /// A null value removes the key.
    static void setValue(Object value, const std::string& forKey);
    /// The value, or null.
    static Object valueForKey(const std::string& key);
    static bool containsValueWithKey(const std::string& key);
    static void removeAllValues();
    /// Writes the file. A failure is logged, and the changes wait in memory for the next call.
    static void synchronize();

    /// Loads the file; one that cannot be read counts as empty. Use the class operations.
    explicit CCAppValues(Environment& environment);

private:
    static CCAppValues& shared();

    Environment& environment_;
    const std::string path_;
    mutable Mutex mutex_;
    MergedDictionary values_ DAYWARD_GUARDED_BY(mutex_);
};

}  // namespace dayward

// Where the program's files lie. One home holds everything; see resolve().
#pragma once

#include <string>

namespace dayward {

struct Paths {
    std::string documents;  ///< event packages, KEY.evn
    std::string library;    ///< "CCAppValues.dat", "CCAppHistory.dat"
    std::string applicationSupport;  ///< "HHSettings", private data
    std::string caches;
    std::string config;     ///< user defaults
    std::string state;      ///< locks, the record of unreadable files, the notification schedule
    std::string group;      ///< the directory shared with the widget process
    std::string resources;  ///< the program's own read-only files

    /// Everything under `home`, if it is not empty, else under $DAYWARD_HOME, else in the XDG
    /// directories (data, config, state, cache) of the user. A home that is not absolute is taken from the
    /// present directory. `resources` as given.
    static Paths resolve(const std::string& home, const std::string& resources);
};

}  // namespace dayward

#include "platform/Paths.h"

#include <pwd.h>
#include <unistd.h>

#include <cstdlib>

#include "platform/FileSystem.h"

namespace dayward {

namespace {

std::string environmentValue(const char* name) {
    const char* const value = std::getenv(name);
    return value == nullptr ? "" : value;
}

/// Where nothing says HOME, as in some services, the system's list of users does.
std::string userHome() {
    const std::string given = environmentValue("HOME");
    if (!given.empty()) return given;
    const passwd* const user = ::getpwuid(::getuid());
    return user == nullptr ? "" : user->pw_dir;
}

/// The XDG rule: a base directory that is not absolute counts as unset.
std::string baseDirectory(const char* variable, const std::string& underUserHome) {
    const std::string given = environmentValue(variable);
    const std::string base = given.starts_with('/') ? given : joinPath(userHome(), underUserHome);
    return joinPath(base, "dayward");
}

Paths pathsIn(const std::string& data, const std::string& config, const std::string& state, const std::string& cache) {
    Paths paths;
    paths.documents = joinPath(data, "Documents");
    paths.library = joinPath(data, "Library");
    paths.applicationSupport = joinPath(data, "Application Support");
    paths.group = joinPath(data, "Group");
    paths.config = config;
    paths.state = state;
    paths.caches = cache;
    return paths;
}

}  // namespace

Paths Paths::resolve(const std::string& home, const std::string& resources) {
    const std::string given = home.empty() ? environmentValue("DAYWARD_HOME") : home;
    const std::string root = absolutePath(given).value_or(given);
    Paths paths =
        root.empty()
            ? pathsIn(baseDirectory("XDG_DATA_HOME", ".local/share"), baseDirectory("XDG_CONFIG_HOME", ".config"),
                      baseDirectory("XDG_STATE_HOME", ".local/state"), baseDirectory("XDG_CACHE_HOME", ".cache"))
            : pathsIn(joinPath(root, "data"), joinPath(root, "config"), joinPath(root, "state"),
                      joinPath(root, "cache"));
    paths.resources = resources;
    return paths;
}

}  // namespace dayward

#include "platform/Paths.h"

#include <cstdlib>

#include "platform/FileSystem.h"

namespace dayward {

namespace {

std::string environmentValue(const char* name) {
    const char* const value = std::getenv(name);
    return value == nullptr ? "" : value;
}

/// The XDG rule: a base directory that is not absolute counts as unset.
std::string baseDirectory(const char* variable, const std::string& underUserHome) {
    const std::string given = environmentValue(variable);
    const std::string base = given.starts_with('/') ? given : joinPath(environmentValue("HOME"), underUserHome);
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
    const std::string root = home.empty() ? environmentValue("DAYWARD_HOME") : home;
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

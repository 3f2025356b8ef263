#include "Submodules/CorpLibrary2/Foundation/StandardPaths.h"

#include <cstdlib>
#include <functional>
#include <map>

#include "platform/Environment.h"
#include "platform/FatalError.h"
#include "platform/FileSystem.h"
#include "platform/Log.h"
#include "platform/Mutex.h"

namespace dayward {

namespace {

// Linux lets users set attributes of the "user" namespace only.
constexpr const char* kExcludedFromBackup = "user.com.apple.MobileBackup";

/// The paths that were computed, of one environment.
class ComputedPaths {
public:
    explicit ComputedPaths(Environment&) {}

    std::string get(const std::string& name, const std::function<std::string()>& compute) {
        const Lock lock(mutex_);
        const auto known = paths_.find(name);
        return known != paths_.end() ? known->second : paths_.emplace(name, compute()).first->second;
    }

private:
    RecursiveMutex mutex_;  ///< one path builds on another
    std::map<std::string, std::string> paths_ DAYWARD_GUARDED_BY(mutex_);
};

std::string computedOnce(const std::string& name, const std::function<std::string()>& compute) {
    return Environment::current().shared<ComputedPaths>().get(name, compute);
}

std::string madeDirectory(const std::string& path) {
    const auto made = Environment::current().files().createDirectories(path);
    if (!made) logError("StandardPaths: " + made.error().description());
    return path;
}

std::string directoryOf(SystemDirectory code) {
    const Paths& paths = Environment::current().paths();
    switch (code) {
        case SystemDirectory::library: return paths.library;
        case SystemDirectory::documents: return paths.documents;
        case SystemDirectory::caches: return paths.caches;
        case SystemDirectory::applicationSupport: return paths.applicationSupport;
    }
    fatalError("no such system directory: " + std::to_string(static_cast<int>(code)));
}

std::string makeOfflineDirectory() {
    const std::string path = madeDirectory(joinPath(privateDataPath(), "Offline Data"));
    // Best effort: not every file system keeps attributes.
    (void)Environment::current().files().setExtendedAttribute(path, kExcludedFromBackup, dataOf("1"));
    return path;
}

}  // namespace

std::string systemDirectory(SystemDirectory code) {
    const std::string path = directoryOf(code);
    const auto made = Environment::current().files().createDirectories(path);
    if (!made) {
        fatalError("The application directory doesn't exist and could not be created. Error: " +
                   made.error().description());
    }
    return path;
}

std::string publicDataPath() { return Environment::current().paths().documents; }

std::string privateDataPath() {
    return computedOnce("private", [] { return madeDirectory(Environment::current().paths().applicationSupport); });
}

std::string cacheDataPath() {
    return computedOnce("cache", [] { return madeDirectory(Environment::current().paths().caches); });
}

std::string offlineDataPath() { return computedOnce("offline", makeOfflineDirectory); }

std::string temporaryDataPath() {
    return computedOnce("temporary", [] { return madeDirectory(joinPath(cacheDataPath(), "Temporary Files")); });
}

std::string resourcePath() { return Environment::current().paths().resources; }

std::optional<std::string> ubiquityDataPath() {
    const std::string path = computedOnce("ubiquity", [] {
        const char* const container = std::getenv("DAYWARD_CONTAINER");
        return std::string(container == nullptr ? "" : container);
    });
    return path.empty() ? std::nullopt : std::optional(path);
}

std::string pathForPublicFile(const std::string& file) { return joinPath(publicDataPath(), file); }
std::string pathForPrivateFile(const std::string& file) { return joinPath(privateDataPath(), file); }
std::string pathForCacheFile(const std::string& file) { return joinPath(cacheDataPath(), file); }
std::string pathForOfflineFile(const std::string& file) { return joinPath(offlineDataPath(), file); }
std::string pathForTemporaryFile(const std::string& file) { return joinPath(temporaryDataPath(), file); }
std::string pathForResource(const std::string& file) { return joinPath(resourcePath(), file); }

std::vector<std::string> getTestExtensionsForFileName(const std::string& name,
                                                      const std::vector<std::string>& ofTypes) {
    return ofTypes.empty() ? std::vector{pathExtension(name)} : ofTypes;
}

std::optional<std::string> findPathForFileName(const std::string& name, const std::vector<std::string>& ofTypes,
                                               const std::string& inDirectory) {
    const std::string stem = joinPath(inDirectory, ofTypes.empty() ? deletingPathExtension(name) : name);
    for (const std::string& extension : getTestExtensionsForFileName(name, ofTypes)) {
        const std::string path = extension.empty() ? stem : stem + "." + extension;
        if (Environment::current().files().exists(path)) return path;
    }
    return std::nullopt;
}

std::optional<std::string> findPathForPublicFileName(const std::string& name, const std::vector<std::string>& ofTypes) {
    return findPathForFileName(name, ofTypes, publicDataPath());
}

std::optional<std::string> findPathForResourceName(const std::string& name, const std::vector<std::string>& ofTypes) {
    return findPathForFileName(name, ofTypes, resourcePath());
}

}  // namespace dayward

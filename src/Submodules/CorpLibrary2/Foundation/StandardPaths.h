// The application's standard directories, and finding files in them.
//
// Each path is computed once, under a lock, and kept for the environment: a later read touches no
// file. Directories that are to exist are made then; where that fails the reason is logged and the
// path is given all the same. Any thread.
#pragma once

#include <optional>
#include <string>
#include <vector>

namespace dayward {

/// Directories of the system by their published codes.
enum class SystemDirectory { library = 5, documents = 9, caches = 13, applicationSupport = 14 };

/// The directory of that code, made if missing; stops the process where it cannot be.
std::string systemDirectory(SystemDirectory code);

std::string publicDataPath();   ///< the documents; not made
std::string privateDataPath();  ///< application support
std::string cacheDataPath();
std::string offlineDataPath();    ///< "Offline Data" in privateDataPath(), marked as left out of backups
std::string temporaryDataPath();  ///< "Temporary Files" in cacheDataPath()
std::string resourcePath();       ///< the program's own read-only files; not made
/// The container of the cloud, $DAYWARD_CONTAINER; nothing where none is set. Not made.
std::optional<std::string> ubiquityDataPath();

std::string pathForPublicFile(const std::string& file);
std::string pathForPrivateFile(const std::string& file);
std::string pathForCacheFile(const std::string& file);
std::string pathForOfflineFile(const std::string& file);
std::string pathForTemporaryFile(const std::string& file);
std::string pathForResource(const std::string& file);

/// The first existing file of that name followed by one of the extensions in the directory; without
/// extensions the name itself is tried.
std::optional<std::string> findPathForFileName(const std::string& name, const std::vector<std::string>& ofTypes,
                                               const std::string& inDirectory);
std::optional<std::string> findPathForPublicFileName(const std::string& name, const std::vector<std::string>& ofTypes);
std::optional<std::string> findPathForResourceName(const std::string& name, const std::vector<std::string>& ofTypes);
/// The extensions to try: those given, or else the name's own, which may be the empty one.
std::vector<std::string> getTestExtensionsForFileName(const std::string& name, const std::vector<std::string>& ofTypes);

}  // namespace dayward

#include "Submodules/CorpLibrary2/Foundation/CCApplicationGroup.h"

#include "platform/Environment.h"
#include "platform/FatalError.h"
#include "platform/FileSystem.h"
#include "platform/Log.h"

namespace dayward {

std::string CCApplicationGroup::groupDirectory() const {
    const Environment& environment = Environment::current();
    const std::string& directory = environment.paths().group;
    const auto made = environment.files().createDirectories(directory);
    if (!made || identifier.empty()) {
        fatalError("The shared application group container is unavailable. Check your entitlements and provisioning");
    }
    return directory;
}

std::string CCApplicationGroup::getSubDirectory(const std::string& name, Create create) const {
    const std::string path = joinPath(groupDirectory(), name);
    if (create == Create::no) return path;
    const auto made = Environment::current().files().createDirectories(path);
    if (!made) logError("CCApplicationGroup: " + made.error().description());
    return path;
}

std::string CCApplicationGroup::documentDirectory() const { return getSubDirectory("Documents", Create::yes); }

std::string CCApplicationGroup::documentDirectory(const std::string& name) const {
    return joinPath(documentDirectory(), name);
}

std::string CCApplicationGroup::libraryDirectory() const { return getSubDirectory("Library", Create::yes); }

std::string CCApplicationGroup::libraryDirectory(const std::string& name) const {
    return joinPath(libraryDirectory(), name);
}

}  // namespace dayward

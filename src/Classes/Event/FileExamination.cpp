#include "Classes/Event/FileExamination.h"

#include <algorithm>
#include <span>

#include "Classes/Category/CategoryLocalStore.h"
#include "Classes/Category/EventCategory.h"
#include "Classes/Event/EventLocalStore.h"
#include "Classes/Event/EventStoreHelper.h"
#include "platform/FileSystem.h"
#include "platform/KeyedUnarchiver.h"
#include "platform/NotificationSchedule.h"

namespace dayward {

namespace {

constexpr const char* kDefaultsExtension = "defaults";
/// Where a reader puts aside what it could not read.
constexpr const char* kPutAsideExtension = "unreadable";
constexpr const char* kStorageFiles[] = {"HHSettings",       "HHUserSettings",       "CCAppValues.dat",
                                         "CCAppHistory.dat", "XXAppData.values.dat", "XXAppData.events.dat",
                                         "favoriteData.dat"};

/// What alerts are kept in. What is put aside of them does no harm: it is made anew.
constexpr const char* kStateFiles[] = {NotificationSchedule::kFileName, NotificationSchedule::kCopyName,
                                       "notifications.delivered"};

enum class Kind { package, storage, defaults, state, putAside, other };

bool isOneOf(std::span<const char* const> names, const std::string& name) {
    return std::ranges::find(names, name) != names.end();
}

Kind kindOf(const std::string& name) {
    if (isTemporaryName(name)) return Kind::other;
    if (isOneOf(kStateFiles, name)) return Kind::state;
    const std::string extension = pathExtension(name);
    if (extension == EventLocalStore::kFileExtension) return Kind::package;
    if (extension == kDefaultsExtension) return Kind::defaults;
    if (extension == kPutAsideExtension) return Kind::putAside;
    return isOneOf(kStorageFiles, name) ? Kind::storage : Kind::other;
}

std::vector<std::string> faultsOfPackage(const std::string& path) {
    std::vector<std::string> faults;
    if (const auto event = EventStoreHelper::readEvent(path); !event) faults.push_back(event.error().description());
    const FileSystem& files = Environment::current().files();
    for (const char* name : {EventDocument::kIconFile, EventDocument::kBackgroundFile}) {
        const std::string picture = joinPath(path, name);
        if (!files.exists(picture)) continue;
        const auto bytes = files.readFile(picture);
        const auto image = bytes ? Image::decode(*bytes) : Result<Image>(std::unexpected(bytes.error()));
        if (!image) faults.push_back(std::string(name) + ": " + image.error().description());
    }
    // Any other file that cannot be read keeps the event from being saved.
    EventDocument document(path);
    const auto whole = faults.empty() ? document.readFromURL(path) : Result<>();
    if (!whole) faults.push_back(whole.error().description());
    return faults;
}

/// The archive's root, or the fault.
Result<Object> rootOfFile(const std::string& path) {
    const Data bytes = TRY(Environment::current().files().readFile(path));
    return KeyedUnarchiver::unarchiveObjectWithData(bytes);
}

template <class T>
void examineBlock(const Object& block, const std::string& name, std::vector<std::string>& faults) {
    if (block.data() == nullptr) {
        faults.push_back(name + " is no data block");
        return;
    }
    const auto root = KeyedUnarchiver::unarchiveObjectWithData(*block.data());
    if (!root) {
        faults.push_back(name + ": " + root.error().description());
    } else if (!root->template as<T>()) {
        faults.push_back(name + " holds another kind of object");
    }
}

std::vector<std::string> faultsOfCategoryList(const Dictionary& defaults) {
    std::vector<std::string> faults;
    if (const auto list = defaults.find(CategoryLocalStore::kCategoriesDefaultsKey); list != defaults.end()) {
        const Array* const blocks = list->second.array();
        if (blocks == nullptr) faults.push_back("the category list is no array");
        for (std::size_t i = 0; blocks != nullptr && i < blocks->size(); ++i)
            examineBlock<EventCategory>((*blocks)[i], "category " + std::to_string(i + 1), faults);
    }
    if (const auto version = defaults.find(CategoryLocalStore::kVersionDefaultsKey); version != defaults.end())
        examineBlock<CCSyncItemVersion>(version->second, "the category list's version", faults);
    return faults;
}

}  // namespace

std::vector<std::string> filesToExamine(Environment& environment) {
    const Paths& paths = environment.paths();
    std::vector<std::string> found;
    for (const std::string& directory :
         {paths.documents, paths.library, paths.applicationSupport, paths.config, paths.group}) {
        const auto names = environment.files().listDirectory(directory);
        if (!names) found.push_back(directory);
        for (const std::string& name : names.value_or(std::vector<std::string>())) {
            const Kind kind = kindOf(name);
            if (kind == Kind::other || (kind == Kind::package && directory != paths.documents)) continue;
            found.push_back(joinPath(directory, name));
        }
    }
    for (const char* name : kStateFiles) {
        const std::string path = joinPath(paths.state, name);
        if (environment.files().exists(path)) found.push_back(path);
    }
    std::ranges::sort(found);
    found.erase(std::ranges::unique(found).begin(), found.end());
    return found;
}

std::vector<std::string> faultsOfFile(const std::string& path) {
    switch (kindOf(lastPathComponent(path))) {
        case Kind::package: return faultsOfPackage(path);
        case Kind::putAside: return {"it could not be read when it was needed and was put aside"};
        case Kind::storage:
        case Kind::state:
        case Kind::defaults: {
            const auto root = rootOfFile(path);
            if (!root) return {root.error().description()};
            if (root->dictionary() != nullptr) return faultsOfCategoryList(*root->dictionary());
            if (kindOf(lastPathComponent(path)) == Kind::storage && root->record()) return {};
            return {"the archive holds no dictionary"};
        }
        case Kind::other: break;
    }
    const auto names = Environment::current().files().listDirectory(path);
    return names ? std::vector<std::string>() : std::vector{names.error().description()};
}

}  // namespace dayward

#include "resources/Gallery.h"

#include <map>

#include "platform/Environment.h"
#include "platform/Strings.h"
#include "resources/HHResources.h"
#include "resources/JSONResource.h"
#include "resources/XELAudioManager.h"

namespace dayward {
namespace {

constexpr std::string_view kTable = "Gallery";

using Groups = std::vector<GalleryGroup>;

std::vector<GalleryItem> readItems(const nlohmann::json& group) {
    std::vector<GalleryItem> items;
    for (const auto& entry : valueIn(group, "items", std::vector<nlohmann::json>())) {
        GalleryItem item{textIn(entry, "file"), textIn(entry, "name")};
        if (HHResources::pathForFileName(item.file)) items.push_back(std::move(item));
    }
    return items;
}

Groups readGroups(std::string_view resource) {
    Groups groups;
    for (const auto& entry : elementsOfResource(resource)) {
        GalleryGroup group{textIn(entry, "name"), readItems(entry)};
        if (!group.items.empty()) groups.push_back(std::move(group));
    }
    return groups;
}

struct GalleryGroups {
    explicit GalleryGroups(Environment&) {
        for (const Groups* groups : {&icons, &backgrounds, &sounds}) {
            for (const auto& group : *groups) {
                for (const auto& item : group.items) names.emplace(item.file, item.name);
            }
        }
    }
    const Groups icons = readGroups("iconGroups");
    const Groups backgrounds = readGroups("backgroundGroups");
    const Groups sounds = readGroups("soundGroups");
    std::map<std::string, std::string, std::less<>> names;  ///< by file
};

const GalleryGroups& galleryGroups() { return Environment::current().shared<GalleryGroups>(); }

}  // namespace

std::string GalleryItem::title() const { return localized(name, kTable); }

std::string GalleryGroup::title() const { return localized(name, kTable); }

const Groups& Gallery::icons() { return galleryGroups().icons; }

const Groups& Gallery::backgrounds() { return galleryGroups().backgrounds; }

const Groups& Gallery::sounds() { return galleryGroups().sounds; }

std::string Gallery::titleOfFile(std::string_view file) {
    const auto& names = galleryGroups().names;
    const auto found = names.find(file);
    return found == names.end() ? XELAudioManager::descriptionAtSoundFile(file) : localized(found->second, kTable);
}

}  // namespace dayward

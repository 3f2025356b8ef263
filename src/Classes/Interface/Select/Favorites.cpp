#include "Classes/Interface/Select/Favorites.h"

#include "Classes/Category/EventBackgroundPicture.h"
#include "Classes/Category/EventIconPicture.h"
#include "resources/FavoriteData.h"

namespace dayward {

namespace {

Array newest(const char* kind) { return FavoriteData::getObjectsForKey(kind, Favorites::kShown); }

template <class Picture>
std::vector<std::shared_ptr<Picture>> pictures(const char* kind) {
    std::vector<std::shared_ptr<Picture>> found;
    for (const Object& object : newest(kind)) {
        if (auto picture = object.as<Picture>()) found.push_back(std::move(picture));
    }
    return found;
}

}  // namespace

void Favorites::add(const Object& chosen, const char* kind) { FavoriteData::addObject(chosen, kind); }

std::vector<std::string> Favorites::names(const char* kind) {
    std::vector<std::string> found;
    for (const Object& object : newest(kind)) {
        if (object.string() != nullptr) found.push_back(*object.string());
    }
    return found;
}

std::vector<Color> Favorites::colors() {
    std::vector<Color> found;
    for (const Object& object : newest(kColors)) {
        if (const auto color = colorOf(object)) found.push_back(*color);
    }
    return found;
}

std::vector<std::shared_ptr<EventIconPicture>> Favorites::icons() { return pictures<EventIconPicture>(kIcons); }

std::vector<std::shared_ptr<EventBackgroundPicture>> Favorites::backgrounds() {
    return pictures<EventBackgroundPicture>(kBackgrounds);
}

}  // namespace dayward

// What the user chose last, for the head of each gallery. Main thread only.
#pragma once

#include <memory>
#include <string>
#include <vector>

#include "platform/Color.h"
#include "platform/Object.h"

namespace dayward {

class EventBackgroundPicture;
class EventIconPicture;

class Favorites {
public:
    /// The kinds, by which FavoriteData keeps them.
    static constexpr const char* kIcons = "icons";
    static constexpr const char* kBackgrounds = "backgrounds";
    static constexpr const char* kColors = "colors";
    static constexpr const char* kFonts = "fonts";
    static constexpr const char* kSounds = "sounds";
    /// At most so many of them are shown.
    static constexpr std::size_t kShown = 8;

    static void add(const Object& chosen, const char* kind);

    // Newest first; what is of another type is left out.
    static std::vector<std::string> names(const char* kind);
    static std::vector<Color> colors();
    static std::vector<std::shared_ptr<EventIconPicture>> icons();
    static std::vector<std::shared_ptr<EventBackgroundPicture>> backgrounds();
};

}  // namespace dayward

// The catalogues as a gallery shows them: in groups, with names in the user's language.
//
// Groups are read once for each environment and kept; they are immutable, any thread may ask. A file
// that is missing is left out; a group that is left without items too.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace dayward {

struct GalleryItem {
    std::string file;                         ///< as in the catalogue of HHResources or HHSound
    std::string name;                         ///< in English
    [[nodiscard]] std::string title() const;  ///< the name in the user's language
};

struct GalleryGroup {
    std::string name;  ///< in English
    std::vector<GalleryItem> items;
    [[nodiscard]] std::string title() const;
};

class Gallery {
public:
    static const std::vector<GalleryGroup>& icons();
    static const std::vector<GalleryGroup>& backgrounds();
    static const std::vector<GalleryGroup>& sounds();

    /// The title of a file in any of the groups; of another file its name without extension, "_" as blank.
    static std::string titleOfFile(std::string_view file);
};

}  // namespace dayward

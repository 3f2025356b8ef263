// What stands for the gallery's fonts: an installed free font of a similar look for each.
//
// The table "fontData.json" is read once for each environment and kept; immutable, any thread.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace dayward {

struct FontLook {
    std::string name;    ///< as events and categories hold it
    std::string title;   ///< as people read it
    std::string family;  ///< of the installed font
    int weight = 400;    ///< from 100 to 900, 400 is regular and 700 bold
    bool isItalic = false;
    bool isSmallCaps = false;
    std::string fallback;  ///< the generic family where that one is missing: serif, sans-serif, …
    std::string package;   ///< the system's package that has the font

    /// All, in the gallery's order.
    static const std::vector<FontLook>& all();
    /// Nothing for a name that is not in the gallery.
    static std::optional<FontLook> named(std::string_view name);
    /// The font's name for people; one that is not in the gallery is its own.
    static std::string titleOf(std::string_view name);
};

}  // namespace dayward

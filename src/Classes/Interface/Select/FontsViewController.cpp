#include "Classes/Interface/Select/FontsViewController.h"

#include "Classes/Interface/Select/Favorites.h"
#include "platform/Strings.h"
#include "resources/FontLook.h"
#include "resources/HHResources.h"

namespace dayward {

FontsViewController::FontsViewController(std::optional<std::string> selectedFont, std::vector<GalleryChoice> choices,
                                         Completion completionBlock)
    : GalleryViewController(localized("Font"), std::move(choices)),
      selectedFont_(std::move(selectedFont)),
      completionBlock_(std::move(completionBlock)) {}

std::vector<TableSection> FontsViewController::galleries() {
    return {section("recent", recentlyChosenHeader(), Favorites::names(Favorites::kFonts)),
            section("fonts", localized("Fonts"), HHResources::fonts())};
}

TableSection FontsViewController::section(const std::string& id, std::string header,
                                          const std::vector<std::string>& fonts) {
    TableSection section{id, std::move(header), {}, {}};
    for (const std::string& font : fonts) {
        section.rows.push_back(checkRow(id + ":" + font, FontLook::titleOf(font), font == selectedFont_, [this, font] {
            finish([this, font] {
                Favorites::add(font, Favorites::kFonts);
                completionBlock_(font);
            });
        }));
        section.rows.back().fontName = font;
    }
    return section;
}

}  // namespace dayward

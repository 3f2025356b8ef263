#include "Classes/Interface/Select/ColorsViewController.h"

#include "Classes/Interface/Select/ColorNames.h"
#include "Classes/Interface/Select/Favorites.h"
#include "platform/Strings.h"
#include "resources/HHResources.h"

namespace dayward {

ColorsViewController::ColorsViewController(std::string title, std::optional<Color> selectedColor,
                                           std::vector<GalleryChoice> choices, Completion completionBlock)
    : GalleryViewController(std::move(title), std::move(choices)),
      selectedColor_(selectedColor),
      completionBlock_(std::move(completionBlock)) {}

std::vector<TableSection> ColorsViewController::galleries() {
    return {section("recent", recentlyChosenHeader(), Favorites::colors()),
            section("base", localized("Base colors"), HHResources::baseColors()),
            section("colors", localized("Colors"), HHResources::colors())};
}

TableSection ColorsViewController::section(const std::string& id, std::string header,
                                           const std::vector<Color>& colors) {
    std::vector<Cell> cells;
    for (const Color& color : colors) {
        const bool isSelected = selectedColor_ && selectedColor_->hex() == color.hex();
        cells.push_back({{nameOfColor(color), isSelected, color, {}}, [this, color] {
                             finish([this, color] {
                                 Favorites::add(colorObject(color), Favorites::kColors);
                                 completionBlock_(color);
                             });
                         }});
    }
    return gridSection(id, std::move(header), std::move(cells));
}

}  // namespace dayward

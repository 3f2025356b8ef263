#include "Classes/Interface/Select/BackgroundsViewController.h"

#include "Classes/Category/ColorEventBackgroundPicture.h"
#include "Classes/Category/ImageEventBackgroundPicture.h"
#include "Classes/Category/NamedEventBackgroundPicture.h"
#include "Classes/Interface/General/Interface.h"
#include "Classes/Interface/Select/ColorNames.h"
#include "Classes/Interface/Select/Favorites.h"
#include "platform/Strings.h"
#include "resources/Gallery.h"
#include "resources/HHResources.h"

namespace dayward {

namespace {

std::string titleOf(const EventBackgroundPicture& background) {
    if (const auto* named = dynamic_cast<const NamedPicture*>(&background)) return Gallery::titleOfFile(named->named());
    if (const auto* color = dynamic_cast<const ColorPicture*>(&background)) return nameOfColor(color->color());
    return localized("Picture");
}

}  // namespace

BackgroundsViewController::BackgroundsViewController(Background selected, std::vector<GalleryChoice> choices,
                                                     Completion completionBlock)
    : PictureGalleryViewController(localized("Background"), std::move(choices), kLongestBackgroundSide),
      selected_(std::move(selected)),
      completionBlock_(std::move(completionBlock)) {}

std::vector<TableSection> BackgroundsViewController::galleries() {
    std::vector<TableSection> sections{ownPictureSection(), recentSection()};
    for (const GalleryGroup& group : Gallery::backgrounds()) {
        std::vector<Cell> cells;
        for (const GalleryItem& item : group.items) {
            cells.push_back(cell(std::make_shared<NamedEventBackgroundPicture>(item.file)));
        }
        sections.push_back(gridSection("group:" + group.name, group.title(), std::move(cells)));
    }
    sections.push_back(colorsSection());
    return sections;
}

TableSection BackgroundsViewController::recentSection() {
    std::vector<Cell> cells;
    for (const Background& background : Favorites::backgrounds()) cells.push_back(cell(background));
    return gridSection("recent", recentlyChosenHeader(), std::move(cells));
}

TableSection BackgroundsViewController::colorsSection() {
    std::vector<Cell> cells;
    for (const Color& color : HHResources::colors()) {
        cells.push_back(cell(std::make_shared<ColorEventBackgroundPicture>(color)));
    }
    return gridSection("colors", localized("Colors"), std::move(cells));
}

GalleryViewController::Cell BackgroundsViewController::cell(const Background& background) {
    GridItem item{titleOf(*background), selected_ && selected_->isEqual(*background), {}, {}};
    if (const auto* color = dynamic_cast<const ColorPicture*>(background.get())) {
        item.color = color->color();
    } else {
        item.picture = Interface::thumbnailViewForEventBackground(background);
    }
    return {std::move(item), [this, background] {
                finish([this, background] {
                    Favorites::add(background, Favorites::kBackgrounds);
                    completionBlock_(background);
                });
            }};
}

void BackgroundsViewController::chooseImage(std::shared_ptr<const Image> image, const std::string& source) {
    completionBlock_(std::make_shared<ImageEventBackgroundPicture>(std::move(image), source));
}

}  // namespace dayward

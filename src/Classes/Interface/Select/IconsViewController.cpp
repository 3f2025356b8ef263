#include "Classes/Interface/Select/IconsViewController.h"

#include "Classes/Category/ImageEventIconPicture.h"
#include "Classes/Category/NamedEventIconPicture.h"
#include "Classes/Interface/General/Interface.h"
#include "Classes/Interface/Select/Favorites.h"
#include "platform/Strings.h"
#include "resources/Gallery.h"

namespace dayward {

IconsViewController::IconsViewController(Icon selected, std::vector<GalleryChoice> choices, Completion completionBlock)
    : PictureGalleryViewController(localized("Icon"), std::move(choices), kLongestIconSide),
      selected_(std::move(selected)),
      completionBlock_(std::move(completionBlock)) {}

std::vector<TableSection> IconsViewController::galleries() {
    std::vector<Cell> recent;
    for (const Icon& icon : Favorites::icons()) {
        const auto* named = dynamic_cast<const NamedPicture*>(icon.get());
        recent.push_back(cell(icon, named != nullptr ? Gallery::titleOfFile(named->named()) : localized("Picture")));
    }
    std::vector<TableSection> sections{ownPictureSection(),
                                       gridSection("recent", recentlyChosenHeader(), std::move(recent))};
    for (const GalleryGroup& group : Gallery::icons()) {
        std::vector<Cell> cells;
        for (const GalleryItem& item : group.items) {
            cells.push_back(cell(std::make_shared<NamedEventIconPicture>(item.file), item.title()));
        }
        sections.push_back(gridSection("group:" + group.name, group.title(), std::move(cells)));
    }
    return sections;
}

GalleryViewController::Cell IconsViewController::cell(const Icon& icon, std::string label) {
    const bool isSelected = selected_ && selected_->isEqual(*icon);
    return {{std::move(label), isSelected, {}, Interface::thumbnailViewForEventIcon(icon)}, [this, icon] {
                finish([this, icon] {
                    Favorites::add(icon, Favorites::kIcons);
                    completionBlock_(icon);
                });
            }};
}

void IconsViewController::chooseImage(std::shared_ptr<const Image> image, const std::string& source) {
    completionBlock_(std::make_shared<ImageEventIconPicture>(std::move(image), source));
}

}  // namespace dayward

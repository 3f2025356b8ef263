// The thumbnails of Interface.
#include "Classes/Category/ColorPicture.h"
#include "Classes/Category/EventBackgroundTemplate.h"
#include "Classes/Category/ImagePicture.h"
#include "Classes/Category/NamedPicture.h"
#include "Classes/Category/RColorEventBackgroundTemplate.h"
#include "Classes/Category/RNamedEventBackgroundTemplate.h"
#include "Classes/Event/LoadEventBackgroundPicture.h"
#include "Classes/Event/LoadEventIconPicture.h"
#include "Classes/Interface/General/Interface.h"

namespace dayward {

namespace {

std::string imageKey(const ImagePicture& picture) {
    const Image& image = *picture.image();
    return "image:" + std::to_string(image.width()) + "x" + std::to_string(image.height()) + ":" +
           std::to_string(picture.pixelsHash());
}

std::string keyOf(const Archivable& picture) {
    if (const auto* named = dynamic_cast<const NamedPicture*>(&picture)) return "name:" + named->named();
    if (const auto* color = dynamic_cast<const ColorPicture*>(&picture)) return "color:" + color->color().hex();
    if (const auto* image = dynamic_cast<const ImagePicture*>(&picture)) return imageKey(*image);
    if (const auto* icon = dynamic_cast<const LoadEventIconPicture*>(&picture)) return "icon:" + icon->itemKey();
    if (const auto* background = dynamic_cast<const LoadEventBackgroundPicture*>(&picture)) {
        return "background:" + background->itemKey();
    }
    return "class:" + picture.archiveClassNames().front();
}

template <class Picture>
RowPicture thumbnail(std::shared_ptr<const Picture> picture) {
    std::string key = keyOf(*picture);
    return {std::move(key), [picture = std::move(picture)] { return picture->getImage(); }};
}

}  // namespace

RowPicture Interface::thumbnailViewForEventIcon(std::shared_ptr<const EventIconPicture> icon) {
    RowPicture picture = thumbnail(std::move(icon));
    picture.isWhole = true;
    return picture;
}

RowPicture Interface::thumbnailViewForEventBackground(std::shared_ptr<const EventBackgroundPicture> background) {
    return thumbnail(std::move(background));
}

RowPicture Interface::thumbnailViewForBackgroundTpl(std::shared_ptr<const EventBackgroundTemplate> tpl) {
    return thumbnail(std::move(tpl));
}

}  // namespace dayward

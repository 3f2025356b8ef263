#include "Classes/Category/BackgroundTemplateConversion.h"

#include "Classes/Category/ColorEventBackgroundPicture.h"
#include "Classes/Category/ColorEventBackgroundTemplate.h"
#include "Classes/Category/HHAppImage.h"
#include "Classes/Category/HHBackground.h"
#include "Classes/Category/ImageEventBackgroundPicture.h"
#include "Classes/Category/ImageEventBackgroundTemplate.h"
#include "Classes/Category/NamedEventBackgroundPicture.h"
#include "Classes/Category/NamedEventBackgroundTemplate.h"

namespace dayward {
namespace {

using Template = std::shared_ptr<EventBackgroundTemplate>;

Template ofBackground(const HHBackground& background) {
    if (background.color()) return std::make_shared<ColorEventBackgroundTemplate>(*background.color());
    if (background.imageSource()) return std::make_shared<NamedEventBackgroundTemplate>(*background.imageSource());
    if (background.image()) return std::make_shared<ImageEventBackgroundTemplate>(background.image());
    return nullptr;
}

Template ofAppImage(const HHAppImage& image) {
    if (image.source()) return std::make_shared<NamedEventBackgroundTemplate>(*image.source());
    if (image.image()) return std::make_shared<ImageEventBackgroundTemplate>(image.image());
    return nullptr;
}

}  // namespace

std::shared_ptr<EventBackgroundTemplate> backgroundTemplateFromObject(const Object& object) {
    if (auto already = object.as<EventBackgroundTemplate>()) return already;
    if (const auto named = object.as<NamedEventBackgroundPicture>()) {
        return std::make_shared<NamedEventBackgroundTemplate>(named->named());
    }
    if (const auto color = object.as<ColorEventBackgroundPicture>()) {
        return std::make_shared<ColorEventBackgroundTemplate>(color->color());
    }
    if (const auto image = object.as<ImageEventBackgroundPicture>()) {
        return std::make_shared<ImageEventBackgroundTemplate>(*image);
    }
    if (const auto background = object.as<HHBackground>()) return ofBackground(*background);
    if (const auto image = object.as<HHAppImage>()) return ofAppImage(*image);
    return nullptr;
}

}  // namespace dayward

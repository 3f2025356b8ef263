#include "Classes/Category/RColorEventBackgroundTemplate.h"

#include "Classes/Category/ColorEventBackgroundPicture.h"
#include "Classes/Category/RandomEntry.h"
#include "resources/HHResources.h"

namespace dayward {

std::shared_ptr<EventBackgroundPicture> RColorEventBackgroundTemplate::getPicture() const {
    const auto* color = randomEntry(HHResources::colors());
    return std::make_shared<ColorEventBackgroundPicture>(color ? *color : Color::white());
}

std::shared_ptr<const Image> RColorEventBackgroundTemplate::getImage() const { return HHResources::image(kImageName); }

bool RColorEventBackgroundTemplate::isEqual(const Archivable& other) const {
    return dynamic_cast<const RColorEventBackgroundTemplate*>(&other) != nullptr;
}

}  // namespace dayward

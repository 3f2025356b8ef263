#include "Classes/Category/RNamedEventBackgroundTemplate.h"

#include "Classes/Category/ColorEventBackgroundPicture.h"
#include "Classes/Category/NamedEventBackgroundPicture.h"
#include "Classes/Category/RandomEntry.h"
#include "resources/HHResources.h"

namespace dayward {

std::shared_ptr<EventBackgroundPicture> RNamedEventBackgroundTemplate::getPicture() const {
    if (const auto* name = randomEntry(HHResources::backgrounds())) {
        return std::make_shared<NamedEventBackgroundPicture>(*name);
    }
    return std::make_shared<ColorEventBackgroundPicture>(Color::white());
}

std::shared_ptr<const Image> RNamedEventBackgroundTemplate::getImage() const { return HHResources::image(kImageName); }

bool RNamedEventBackgroundTemplate::isEqual(const Archivable& other) const {
    return dynamic_cast<const RNamedEventBackgroundTemplate*>(&other) != nullptr;
}

}  // namespace dayward

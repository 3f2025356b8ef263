// The look of HHEvent.
#include "Classes/Category/CategoryLocalStore.h"
#include "Classes/Event/EventDisplay.h"
#include "Classes/Event/HHEvent.h"

namespace dayward {

std::shared_ptr<EventCategory> HHEvent::displayCategory() const {
    return CategoryLocalStore::shared().getCategory(categoryKey());
}

std::shared_ptr<EventIconPicture> HHEvent::displayIcon() const { return EventDisplay::icon(icon_, displayCategory()); }

std::shared_ptr<EventBackgroundPicture> HHEvent::displayBackground() const {
    return EventDisplay::background(background_, randomBackground_, displayCategory());
}

std::string HHEvent::displayFont() const { return EventDisplay::font(appearance_.fontName, displayCategory()); }

Color HHEvent::displayTextColor() const { return EventDisplay::textColor(appearance_.textColor, displayCategory()); }

}  // namespace dayward

#include "Classes/Event/SharedParts.h"

#include <cmath>

#include "Classes/Category/ColorEventBackgroundPicture.h"
#include "Classes/Category/NamedEventBackgroundPicture.h"
#include "Classes/Category/NamedEventIconPicture.h"
#include "Classes/Event/HHEvent.h"

namespace dayward {

void SharedParts::share(SharedText& text) {
    if (text.value()) text = texts_.try_emplace(*text.value(), text).first->second;
}

void SharedParts::share(HHEvent& event) {
    share(event.categoryKey_);
    share(event.rrule_);
    if (const auto* icon = dynamic_cast<const NamedEventIconPicture*>(event.icon_.get()))
        event.icon_ = icons_.try_emplace(icon->named(), event.icon_).first->second;
    const auto* const background = event.background_.get();
    if (const auto* named = dynamic_cast<const NamedEventBackgroundPicture*>(background)) {
        event.background_ = backgrounds_.try_emplace(named->named(), event.background_).first->second;
    } else if (const auto* colored = dynamic_cast<const ColorEventBackgroundPicture*>(background)) {
        const Color color = colored->color();
        // What is no number has no place in an order.
        if (std::isnan(color.red + color.green + color.blue + color.alpha)) return;
        const Components components{color.red, color.green, color.blue, color.alpha};
        event.background_ = colors_.try_emplace(components, event.background_).first->second;
    }
}

}  // namespace dayward

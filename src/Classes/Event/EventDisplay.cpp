#include "Classes/Event/EventDisplay.h"

#include "Classes/Category/CategoryLocalStore.h"
#include "Classes/Category/ColorEventBackgroundPicture.h"
#include "Classes/Category/NamedEventIconPicture.h"

namespace dayward {
namespace {

std::shared_ptr<EventCategory> categoryOrDefault(const std::shared_ptr<EventCategory>& category) {
    return category ? category : CategoryLocalStore::shared().defaultCategory();
}

}  // namespace

std::shared_ptr<EventIconPicture> EventDisplay::icon(const std::shared_ptr<EventIconPicture>& icon,
                                                     const std::shared_ptr<EventCategory>& category) {
    if (icon) return icon;
    if (auto shown = categoryOrDefault(category)->eventIcon) return shown;
    return std::make_shared<NamedEventIconPicture>(kLastIconName);
}

std::shared_ptr<EventBackgroundPicture> EventDisplay::background(
    const std::shared_ptr<EventBackgroundPicture>& background, const std::shared_ptr<EventBackgroundPicture>& rbg,
    const std::shared_ptr<EventCategory>& category) {
    if (background) return background;
    const auto shownTemplate = categoryOrDefault(category)->eventBackgroundTpl;
    if (shownTemplate && !shownTemplate->isRandom()) return shownTemplate->getPicture();
    if (shownTemplate && rbg) return rbg;
    return std::make_shared<ColorEventBackgroundPicture>(Color::white());
}

std::string EventDisplay::font(const std::optional<std::string>& font, const std::shared_ptr<EventCategory>& category) {
    return font ? *font : categoryOrDefault(category)->eventFont.value_or(kLastFontName);
}

Color EventDisplay::textColor(const std::optional<Color>& textColor, const std::shared_ptr<EventCategory>& category) {
    return textColor ? *textColor : categoryOrDefault(category)->eventTextColor.value_or(Color::black());
}

}  // namespace dayward

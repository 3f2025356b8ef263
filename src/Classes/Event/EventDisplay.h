// How an event's look falls back: its own value, else its category's, else a last resort. Class
// operations on loose values; a null category means the default category.
#pragma once

#include <memory>
#include <optional>
#include <string>

#include "Classes/Category/EventBackgroundPicture.h"
#include "Classes/Category/EventCategory.h"
#include "Classes/Category/EventIconPicture.h"
#include "platform/Color.h"

namespace dayward {

class EventDisplay {
public:
    static constexpr const char* kLastIconName = "remind";
    static constexpr const char* kLastFontName = "HelveticaNeue";

    /// Last resort: the named icon "remind". Never null.
    static std::shared_ptr<EventIconPicture> icon(const std::shared_ptr<EventIconPicture>& icon,
                                                  const std::shared_ptr<EventCategory>& category);
    /// `rbg` is the kept random background, which counts where the category's template is random; no
    /// new one is picked here. Last resort: white. Never null.
    static std::shared_ptr<EventBackgroundPicture> background(const std::shared_ptr<EventBackgroundPicture>& background,
                                                              const std::shared_ptr<EventBackgroundPicture>& rbg,
                                                              const std::shared_ptr<EventCategory>& category);
    /// Last resort: "HelveticaNeue".
    static std::string font(const std::optional<std::string>& font, const std::shared_ptr<EventCategory>& category);
    /// Last resort: black.
    static Color textColor(const std::optional<Color>& textColor, const std::shared_ptr<EventCategory>& category);
};

}  // namespace dayward

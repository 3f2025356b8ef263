// The widget in one line of text, for bars and scripts.
#pragma once

#include <string>
#include <vector>

#include "alerts/AppWidget.h"
#include "widget/WidgetContent.h"

namespace dayward {

enum class WidgetFormat {
    text,    ///< "Name: 3 Days", the events after one another
    json,    ///< an object with the type and the events
    waybar,  ///< what a custom module of a bar reads: text, alt, tooltip, class; with escaped markup
};

struct WidgetTextOptions {
    WidgetFormat format = WidgetFormat::text;
    std::size_t count = 1;  ///< of events; the tooltip has up to ten
    std::string separator = " · ";
};

/// How many rows the format needs.
std::size_t rowsNeeded(const WidgetTextOptions& options);
/// Without a newline at the end; no text of the user's breaks the line. Empty for text without events.
std::string widgetText(const WidgetContent& content, WidgetType type, const WidgetTextOptions& options);

}  // namespace dayward

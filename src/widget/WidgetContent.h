// What a widget shows at a moment, and until when that is so. Pure functions of the current environment's clock,
// zone and language.
#pragma once

#include <cstddef>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "alerts/AppWidget.h"
#include "platform/Date.h"

namespace dayward {

class WidgetEvent;

inline constexpr std::size_t kMaximalWidgetEvents = 10;

struct WidgetRow {
    std::shared_ptr<const WidgetEvent> event;
    std::string title;                     ///< "No name" without one
    std::string date;                      ///< "No date!" where the event has none
    std::optional<std::string> countdown;  ///< "Now" while the event is running; nothing without a date
    std::optional<Date> nextDate;
    bool isComing = false;  ///< the event is running
    bool isToday = false;   ///< it is running, or its occurrence lies in the present day
};

struct WidgetContent {
    std::vector<WidgetRow> rows;
    /// When a row, or which rows there are, may be another; nothing where only a new copy can change it.
    std::optional<Date> changesAt;
};

/// At most `count` rows. Of the type "Selected events" they are the first of those that were chosen, in that order.
/// Else they are today's events, in the order of their times, and after them those that come next, so that the
/// widget is empty only when nothing lies ahead.
WidgetContent widgetContent(const std::vector<std::shared_ptr<WidgetEvent>>& events, WidgetType type,
                            std::size_t count);

}  // namespace dayward

// What a row of the event list says, as of now.
#pragma once

#include <optional>
#include <string>

#include "platform/Color.h"

namespace dayward {

class HHEvent;

struct EventRowText {
    std::string title;
    std::string date;                     ///< "No date!" where the event has none
    std::optional<std::string> interval;  ///< "Now" while the event is running; nothing without a date
    Color textColor;
    bool operator==(const EventRowText&) const = default;
};

EventRowText eventRowText(const HHEvent& event);

}  // namespace dayward

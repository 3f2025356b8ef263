// All that a row of the event list shows, as a value: texts as of now, and the look.
#pragma once

#include <optional>
#include <string>

#include "Classes/Interface/List/EventRowText.h"
#include "Classes/Interface/Screens/TableRow.h"

namespace dayward {

class HHEvent;

struct EventRowContent {
    EventRowText text;
    std::string fontName;            ///< of the title
    std::optional<RowPicture> icon;  ///< nothing where rows show no icons
    RowPicture background;
    bool isMissed = false;  ///< an alert of the event fired unseen
    bool operator==(const EventRowContent&) const = default;
};

EventRowContent eventRowContent(const HHEvent& event);
/// The row as one sentence: "Mother (66), Monday, May 4, 55 Days".
std::string accessibleSentence(const EventRowContent& content);

}  // namespace dayward

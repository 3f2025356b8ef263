#include "Classes/Interface/List/EventRowText.h"

#include "Classes/Event/HHEvent.h"
#include "Classes/Other/Date/EventDateText.h"
#include "platform/Strings.h"

namespace dayward {

EventRowText eventRowText(const HHEvent& event) {
    const std::optional<Date> next = event.nextDate();
    EventRowText text;
    text.title = event.titleToDate(next);
    text.date = next ? EventDateText::textFromDate(*next, EventDateTextAll) : localized("No date!");
    text.interval = event.isComing() ? localized("Now") : event.intervalFormat().countdownToDate(next);
    text.textColor = event.displayTextColor();
    return text;
}

}  // namespace dayward

#include "Classes/Interface/List/EventRowText.h"

#include "Classes/Event/HHEvent.h"
#include "Classes/Other/Date/EventDateText.h"
#include "platform/Environment.h"
#include "platform/Strings.h"

namespace dayward {

EventRowText eventRowText(const HHEvent& event) {
    const Date now = Environment::current().now();
    const HHEvent::DatesCalculation dates = event.datesAt(now);
    const std::optional<Date> next = dates.occurrence();
    EventRowText text;
    text.title = event.titleToDate(next);
    text.date = next ? EventDateText::textFromDate(*next, EventDateTextAll) : localized("No date!");
    text.interval = dates.isRunning(now) ? localized("Now") : event.intervalFormat().countdownToDate(next);
    text.textColor = event.displayTextColor();
    return text;
}

}  // namespace dayward

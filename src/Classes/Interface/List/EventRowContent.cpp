#include "Classes/Interface/List/EventRowContent.h"

#include "Classes/Event/HHEvent.h"
#include "Classes/Interface/General/EventPictures.h"
#include "Classes/Settings/AppSettings.h"
#include "alerts/MissedEventsHelper.h"
#include "platform/Strings.h"

namespace dayward {

EventRowContent eventRowContent(const HHEvent& event) {
    EventRowContent content;
    content.text = eventRowText(event);
    content.fontName = event.displayFont();
    if (AppSettings::tableCellIconShow()) content.icon = eventIcon(event);
    content.background = eventBackground(event);
    content.isMissed = MissedEventsHelper::isMissed(event.identifier());
    return content;
}

std::string accessibleSentence(const EventRowContent& content) {
    std::string sentence = content.text.title.empty() ? localized("No name") : content.text.title;
    sentence += ", " + content.text.date;
    if (content.text.interval) sentence += ", " + *content.text.interval;
    if (content.isMissed) sentence += ", " + localized("Missed");
    return sentence;
}

}  // namespace dayward

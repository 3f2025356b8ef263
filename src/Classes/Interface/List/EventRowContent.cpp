#include "Classes/Interface/List/EventRowContent.h"

#include "Classes/Event/HHEvent.h"
#include "Classes/Event/LoadEventBackgroundPicture.h"
#include "Classes/Event/LoadEventIconPicture.h"
#include "Classes/Interface/General/Interface.h"
#include "Classes/Settings/AppSettings.h"
#include "alerts/MissedEventsHelper.h"
#include "platform/Strings.h"

namespace dayward {

namespace {

/// A picture that lies in the event's document is another one with another version of the event.
template <class Loading, class Picture>
RowPicture identified(RowPicture thumbnail, const Picture& picture, const HHEvent& event) {
    if (dynamic_cast<const Loading*>(&picture) != nullptr && event.version()) {
        thumbnail.key += "@" + std::to_string(event.version()->timeInterval().seconds());
    }
    return thumbnail;
}

RowPicture eventIcon(const HHEvent& event) {
    const auto icon = event.displayIcon();
    return identified<LoadEventIconPicture>(Interface::thumbnailForEventIcon(icon), *icon, event);
}

}  // namespace

RowPicture eventBackground(const HHEvent& event) {
    const auto background = event.displayBackground();
    return identified<LoadEventBackgroundPicture>(Interface::thumbnailForEventBackground(background), *background,
                                                  event);
}

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

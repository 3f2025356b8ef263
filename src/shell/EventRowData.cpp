#include "shell/EventRowData.h"

#include "Classes/Interface/List/EventTableViewCell.h"
#include "shell/Pictures.h"
#include "shell/QtValues.h"

namespace dayward {

namespace {

/// The picture that the list has made for the row's size; until then none, and the plain scrim.
QString keyOfBackground(const EventRowContent& content, const EventTableViewCellBackground& background,
                        Pictures& pictures) {
    if (!background.image) return {};
    const std::string size =
        std::to_string(background.image->width()) + "x" + std::to_string(background.image->height());
    return pictures.add({"row:" + size + ":" + content.background.key, [image = background.image] { return image; }});
}

}  // namespace

EventRowData::EventRowData(const EventTableViewCell& cell, Pictures& pictures) {
    const EventRowContent content = cell.content();
    const EventTableViewCellBackground behind = cell.background();
    eventKey = qtText(cell.eventIdentifier().value_or(""));
    title = qtText(content.text.title);
    date = qtText(content.text.date);
    countdown = qtText(content.text.interval.value_or(""));
    fontName = qtText(content.fontName);
    icon = content.icon ? pictures.add(*content.icon) : QString();
    background = keyOfBackground(content, behind, pictures);
    spoken = qtText(accessibleSentence(content));
    textColor = qtColor(content.text.textColor);
    scrim = qtColor(behind.scrim);
    missed = content.isMissed;
}

}  // namespace dayward

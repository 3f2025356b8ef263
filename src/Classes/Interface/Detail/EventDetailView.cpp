#include "Classes/Interface/Detail/EventDetailView.h"

#include <utility>

#include "Classes/Event/HHEvent.h"
#include "Classes/Interface/General/EventPictures.h"
#include "Classes/Interface/General/TextScrim.h"
#include "Classes/Interface/List/EventRowText.h"
#include "Classes/Other/Date/HHDateHelper.h"
#include "platform/Environment.h"
#include "platform/Strings.h"

namespace dayward {

namespace {

XDIDateInterval distanceTo(const HHEvent& event) {
    const Date now = Environment::current().now();
    const HHEvent::DatesCalculation dates = event.datesAt(now);
    const std::optional<Date> next = dates.occurrence();
    if (!next || dates.isRunning(now)) return {};
    return HHDateHelper::detailDateIntervalFromDate(now, *next);
}

void addLine(std::string& text, const std::string& line) { text += (text.empty() ? "" : "\n") + line; }

}  // namespace

void EventDetailView::configureForEvent(const HHEvent& event) {
    if (std::exchange(eventIdentifier_, event.identifier()) != event.identifier()) noteOpened_ = false;
    iconView_ = eventIcon(event);
    fontName_ = event.displayFont();
    RowPicture background = eventBackground(event);
    const Color textColor = event.displayTextColor();
    if (background != backgroundView_ || textColor != textColor_) scrim_ = textScrim(textColor);
    backgroundView_ = std::move(background);
    textColor_ = textColor;
    noteLabel_ = event.note().value_or("");
    noteOpened_ = noteOpened_ && !noteLabel_.empty();
    configureOnlyTimeTextForEvent(event);
}

bool EventDetailView::configureOnlyTimeTextForEvent(const HHEvent& event) {
    EventRowText text = eventRowText(event);
    std::string countdown = text.interval.value_or(localized("? ? ?"));
    detailInterval_ = distanceTo(event);
    auto rows = detailUnitRows(detailInterval_);
    const bool changes =
        text.title != nameLabel_ || text.date != dateLabel_ || countdown != countdownLabel_ || rows != unitRows_;
    nameLabel_ = std::move(text.title);
    dateLabel_ = std::move(text.date);
    countdownLabel_ = std::move(countdown);
    unitRows_ = std::move(rows);
    return changes;
}

std::string EventDetailView::unitKeyLabel() const {
    std::string text;
    for (const DetailUnitRow& row : unitRows_) addLine(text, row.label + ": ");
    return text;
}

std::string EventDetailView::unitValueLabel() const {
    std::string text;
    for (const DetailUnitRow& row : unitRows_) addLine(text, row.value);
    return text;
}

std::string EventDetailView::accessibility() const {
    std::string sentence = nameLabel_.empty() ? localized("No name") : nameLabel_;
    for (const std::string& part : {dateLabel_, countdownLabel_}) sentence += ", " + part;
    for (const DetailUnitRow& row : unitRows_) sentence += ", " + row.label + ": " + row.value;
    if (!noteLabel_.empty()) sentence += ". " + noteLabel_;
    return sentence;
}

}  // namespace dayward

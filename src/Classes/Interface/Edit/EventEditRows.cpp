// The rows of the event editor.
#include "Classes/Category/EventCategory.h"
#include "Classes/Interface/Edit/EventEditViewController.h"
#include "Classes/Interface/General/Interface.h"
#include "Classes/Interface/List/EventRowText.h"
#include "platform/Strings.h"
#include "resources/FontLook.h"

namespace dayward {

std::vector<TableSection> EventEditViewController::makeSections() {
    TableRow units = openingRow("units", localized("Units"),
                                Interface::descriptionIntervalFormat(state_.intervalFormat), [this] { openUnits(); });
    TableRow note = openingRow("note", localized("Note"), state_.note.value_or(""), [this] { openNote(); });
    std::vector<TableSection> sections{{"header", {}, {}, {headerRow(), lookRow()}},
                                       datesSection(),
                                       {"units", {}, {}, {std::move(units)}},
                                       alertsSection(),
                                       lookSection(),
                                       {"note", {}, {}, {std::move(note)}}};
    if (isStored()) {
        TableRow row = destructiveRow("delete", localized("Delete"), [this] { showDeleteActionAlert(); });
        sections.push_back({"delete", {}, {}, {std::move(row)}});
    }
    return sections;
}

TableRow EventEditViewController::headerRow() {
    TableRow row;
    row.id = "header";
    row.kind = RowKind::eventHeader;
    row.startsFocused = !isStored();
    row.content = EventEditHeaderCell{.iconView = Interface::thumbnailViewForEventIcon(state_.displayIcon()),
                                     .iconCategoryMark = !state_.icon,
                                     .iconHelpLabel = state_.icon ? std::string() : localized("select"),
                                     .nameField = {state_.name.value_or(""), localized("Event name")},
                                     .categoryField = {localized("Category"), state_.category->name.value_or("")}};
    row.actions.editText = [this](const std::string& text) { eventEditHeaderCellDidChangeName(text); };
    row.actions.tapItem = [this](std::size_t part) {
        part == EventEditHeaderCell::iconPart ? eventEditHeaderCellTapOnIcon() : eventEditHeaderCellTapOnCategory();
    };
    return row;
}

TableRow EventEditViewController::lookRow() const {
    EventRowText text = eventRowText(preview_);
    TableRow row;
    row.id = "look";
    row.kind = RowKind::look;
    row.content = LookContent{.background = Interface::thumbnailViewForEventBackground(state_.displayBackground()),
                              .icon = Interface::thumbnailViewForEventIcon(state_.displayIcon()),
                              .fontName = state_.displayFont(),
                              .textColor = state_.displayTextColor(),
                              .scrim = lookScrim_,
                              .title = std::move(text.title),
                              .date = std::move(text.date),
                              .countdown = text.interval.value_or("")};
    return row;
}

TableSection EventEditViewController::datesSection() {
    TableSection section{"dates", {}, {}, {}};
    section.rows.push_back(openingRow("date", localized("Date"),
                                      Interface::descriptionDate(state_.date, state_.times()), [this] { openDate(); }));
    section.rows.push_back(openingRow("duration", localized("Duration"),
                                      Interface::descriptionDuration(state_.duration), [this] { openDuration(); }));
    section.rows.push_back(openingRow("repeat", localized("Repeat"), Interface::descriptionRRule(state_.rrule()),
                                      [this] { openRepeat(); }));
    if (!state_.repeatsYearly()) return section;
    section.rows.push_back(toggleRow("showAge", localized("Show age"), state_.showAge,
                                     [this](bool on) { showAgeValueChanged(on); }));
    return section;
}

TableSection EventEditViewController::alertsSection() {
    return {"alerts",
            {},
            {},
            {openingRow("alerts", localized("Alerts"), Interface::descriptionAlerts(state_.alerts),
                        [this] { openAlerts(); }),
             openingRow("sound", localized("Sound"), Interface::descriptionSound(state_.soundName),
                        [this] { openSound(); })}};
}

TableSection EventEditViewController::lookSection() {
    return {"look", {}, {}, {backgroundRow(), fontRow(), textColorRow()}};
}

TableRow EventEditViewController::backgroundRow() {
    TableRow row = openingRow("background", localized("Background"), {}, [this] { openBackgrounds(); });
    row.kind = RowKind::picture;
    row.content = Interface::thumbnailViewForEventBackground(state_.displayBackground());
    row.inherited = !state_.background;
    return row;
}

TableRow EventEditViewController::fontRow() {
    const std::string font = state_.displayFont();
    TableRow row = openingRow("font", localized("Font"), FontLook::titleOf(font), [this] { openFonts(); });
    row.fontName = font;
    row.inherited = !state_.fontName;
    return row;
}

TableRow EventEditViewController::textColorRow() {
    TableRow row = openingRow("textColor", localized("Text color"), {}, [this] { openTextColors(); });
    row.kind = RowKind::color;
    row.content = state_.displayTextColor();
    row.inherited = !state_.textColor;
    return row;
}

}  // namespace dayward

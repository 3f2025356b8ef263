#include "Classes/Interface/Edit/DateFormatViewController.h"

#include <array>

#include "Classes/Interface/General/Interface.h"
#include "platform/Environment.h"
#include "platform/Strings.h"

namespace dayward {

namespace {

constexpr std::array kUnits{CalendarUnit::year, CalendarUnit::month,  CalendarUnit::week,  CalendarUnit::day,
                            CalendarUnit::hour, CalendarUnit::minute, CalendarUnit::second};
constexpr std::array kTextStyles{TextStyle::short_, TextStyle::symbol, TextStyle::full};
/// How far ahead the date of the preview is: all units have a value.
constexpr TimeInterval kSample(39'000'000);

}  // namespace

DateFormatViewController::DateFormatViewController(const HHEventDateFormat& intervalFormat, Completion completionBlock)
    : intervalFormat_(intervalFormat), completionBlock_(std::move(completionBlock)) {
    setTitle(localized("Units"));
}

void DateFormatViewController::viewWillDisappear(Disappearance) { completionBlock_(intervalFormat_); }

std::vector<TableSection> DateFormatViewController::makeSections() {
    TableSection units{"units", preview(), {}, {}};
    for (const CalendarUnit unit : kUnits) {
        units.rows.push_back(checkRow("unit" + std::to_string(static_cast<std::uint64_t>(unit)),
                                      Interface::nameOfUnit(unit), intervalFormat_.units.contains(unit),
                                      [this, unit] { flip(unit); }));
    }
    TableSection styles{"styles", {}, {}, {}};
    for (const TextStyle style : kTextStyles) {
        styles.rows.push_back(checkRow("style" + std::to_string(static_cast<std::int64_t>(style)),
                                       Interface::nameOfTextStyle(style), intervalFormat_.textStyle == style,
                                       [this, style] {
                                           intervalFormat_.textStyle = style;
                                           reloadData();
                                       }));
    }
    return {std::move(units), std::move(styles)};
}

std::string DateFormatViewController::preview() const {
    return intervalFormat_.countdownToDate(Environment::current().now() + kSample).value_or(std::string());
}

void DateFormatViewController::flip(CalendarUnit unit) {
    const CalendarUnits others = intervalFormat_.units.without(unit);
    if (!intervalFormat_.units.contains(unit)) {
        intervalFormat_.units |= unit;
    } else if (!others.isEmpty()) {
        intervalFormat_.units = others;
    }
    reloadData();
}

}  // namespace dayward

#include "Classes/Other/Date/HHEventDateFormat.h"

#include <array>

#include "Classes/Other/Date/HHDateHelper.h"
#include "Classes/Other/Date/HHDateIntervalFormat.h"
#include "platform/Environment.h"
#include "platform/KeyedArchiver.h"
#include "platform/KeyedUnarchiver.h"

namespace dayward {

namespace {

/// The units that an older archive's limit counts, biggest first. Its week is the newer week flag.
constexpr std::array<CalendarUnit, 7> kLimitedUnits{CalendarUnit::year,  CalendarUnit::month, CalendarUnit::weekOfYear,
                                                    CalendarUnit::day,   CalendarUnit::hour,  CalendarUnit::minute,
                                                    CalendarUnit::second};

CalendarUnits biggestUnits(CalendarUnits units, std::int64_t count) {
    CalendarUnits kept;
    for (const auto unit : kLimitedUnits) {
        if (count <= 0) break;
        if (!units.contains(unit)) continue;
        kept |= unit;
        --count;
    }
    return kept;
}

CalendarUnits readUnits(KeyedUnarchiver& coder, std::int64_t stored) {
    if (stored < 0) coder.refuse("HHEventDateFormat: \"Units\" is negative");
    return CalendarUnits::fromMask(static_cast<std::uint64_t>(stored));
}

TextStyle readTextStyle(KeyedUnarchiver& coder, std::int64_t stored) {
    if (stored >= 0 && stored <= static_cast<std::int64_t>(kLastTextStyle)) return static_cast<TextStyle>(stored);
    coder.refuse("HHEventDateFormat: \"UnitsFormatType\" is no text style");
    return TextStyle::number;
}

}  // namespace

std::optional<std::string> HHEventDateFormat::countdownToDate(const std::optional<Date>& date) const {
    if (!date) return std::nullopt;
    HHDateIntervalFormat format(textStyle, NumberStyle::whole);
    format.separator = " ";
    const auto now = Environment::current().now();
    return format.resultForDateInterval(HHDateHelper::roundDateIntervalFromDate(now, *date, units));
}

std::shared_ptr<Archivable> HHEventDateFormat::read(KeyedUnarchiver& coder) {
    auto format = std::make_shared<HHEventDateFormat>();
    if (const auto stored = coder.decodeInteger(kUnitsKey)) format->units = readUnits(coder, *stored);
    if (const auto stored = coder.decodeInteger(kTextStyleKey)) format->textStyle = readTextStyle(coder, *stored);
    const auto maxUnits = coder.decodeInteger(kMaxUnitsKey).value_or(0);
    if (maxUnits >= 1) format->units = biggestUnits(format->units, maxUnits);
    return format;
}

void HHEventDateFormat::encodeWithCoder(KeyedArchiver& coder) const {
    coder.encodeVersion(0, kClassName);
    coder.encodeInteger(static_cast<std::int64_t>(units.mask()), kUnitsKey);
    coder.encodeInteger(static_cast<std::int64_t>(textStyle), kTextStyleKey);
}

bool HHEventDateFormat::isEqual(const Archivable& other) const {
    const auto* format = dynamic_cast<const HHEventDateFormat*>(&other);
    return format != nullptr && *this == *format;
}

void registerDateFormatClasses(ArchiveClasses& classes) {
    classes.add(HHEventDateFormat::kClassName, HHEventDateFormat::read);
}

}  // namespace dayward

// Dates in words: styles, patterns (Unicode TR 35 fields) and symbols of a locale. Safe to share
// between threads.
#pragma once

#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/Date.h"
#include "platform/Locale.h"
#include "platform/TimeZone.h"

namespace dayward {

class DateFormatter {
public:
    enum class Style { none = 0, short_ = 1, medium = 2, long_ = 3, full = 4 };

    /// A formatter with a fixed pattern such as "yyyyMMdd'T'HHmmss'Z'".
    static DateFormatter withPattern(std::string_view pattern, const Locale& locale, const TimeZone& zone);
    /// The locale's own text for the two styles.
    static DateFormatter withStyles(Style dateStyle, Style timeStyle, const Locale& locale, const TimeZone& zone);
    /// The locale's best pattern for the fields of a template such as "yMMMMEEEEdjmm".
    static std::string dateFormatFromTemplate(std::string_view dateTemplate, const Locale& locale);

    [[nodiscard]] std::string stringFromDate(Date date) const;
    /// The date of a text that matches the pattern to its end, strictly; nothing otherwise.
    [[nodiscard]] std::optional<Date> dateFromString(std::string_view text) const;

private:
    struct Impl;
    std::shared_ptr<const Impl> impl_;
};

/// Names of months (index 0 January) and weekdays (index 0 Sunday) in a locale.
struct DateSymbols {
    std::vector<std::string> months, shortMonths, veryShortMonths;
    std::vector<std::string> standaloneMonths, shortStandaloneMonths, veryShortStandaloneMonths;
    std::vector<std::string> weekdays, shortWeekdays, veryShortWeekdays;
    std::vector<std::string> standaloneWeekdays, shortStandaloneWeekdays, veryShortStandaloneWeekdays;

    /// Built once for each locale and kept.
    static const DateSymbols& of(const Locale& locale);
};

}  // namespace dayward

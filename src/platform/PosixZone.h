// A time zone as the text of POSIX's TZ variable ("CET-1CEST,M3.5.0,M10.5.0/3"), with the
// extensions of RFC 8536: names in angle brackets, and rule times from -167 to 167 hours.
// A plain value; any thread.
#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

namespace dayward {

struct PosixZone {
    /// The moment of a yearly change, on the wall clock that holds before it.
    struct Change {
        enum class Kind { julianWithoutLeapDay, dayOfYear, weekdayOfMonth };
        Kind kind = Kind::dayOfYear;
        int month = 1, week = 1, weekday = 0;  ///< of weekdayOfMonth; weekday 0 is Sunday, week 5 the last
        int day = 0;                           ///< of the others: 1 to 365 without 29 February; 0 to 365 with it
        std::int32_t time = 7200;              ///< seconds after midnight

        /// Seconds since 1970 on that wall clock in the year.
        [[nodiscard]] std::int64_t inYear(std::int64_t year) const;
    };
    struct DaylightSaving {
        std::int32_t offset = 0;
        Change start, end;
    };

    std::int32_t offset = 0;  ///< standard time, seconds east of UTC
    std::optional<DaylightSaving> daylightSaving;

    /// Nothing for a text that is not wholly of this form.
    static std::optional<PosixZone> parse(std::string_view text);
};

}  // namespace dayward

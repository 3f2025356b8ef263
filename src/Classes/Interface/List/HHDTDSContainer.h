// The section object of the list by date: what kind of section, and for those ahead which month or year.
#pragma once

#include <compare>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>

#include "platform/Calendar.h"

namespace dayward {

struct HHDTDSContainer {
    enum class Type : std::uint8_t { noDate = 0, missed = 1, today = 2, ahead = 3, passed = 4 };

    Type type = Type::noDate;
    std::optional<std::int64_t> year;
    std::optional<std::int64_t> month;  ///< 1 to 12; nothing for a section of a whole year

    bool operator==(const HHDTDSContainer&) const = default;
    [[nodiscard]] std::size_t hash() const;
    /// The localised title: "Missed", "Today Tuesday, March 10", "April 2026", "2027", "Passed".
    [[nodiscard]] std::string text() const;

    /// The moment at which a list is grouped.
    struct Moment {
        Moment(Date date, const Calendar& inCalendar) : now(date), calendar(inCalendar), today(calendar.fields(now)) {}
        Date now;
        const Calendar& calendar;
        Calendar::Fields today;
    };
    /// The section in which an event belongs whose present occurrence is, or was, that one. `isMissed` tells
    /// whether an alert of it fired unseen.
    static HHDTDSContainer sectionOf(std::optional<Date> occurrence, bool isRunning, bool isMissed,
                                     const Moment& moment);
    /// Whether a stands before b: by type, the months and years ahead in time order, the months of a
    /// year before its year-only section. Two equal sections of one type other than `ahead` answer true.
    static bool isOrderedBefore(const HHDTDSContainer& a, const HHDTDSContainer& b);
};

}  // namespace dayward

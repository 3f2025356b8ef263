// The occurrences of some events from a moment on, told by the gaps of more than a day between them: between
// two gaps the occurrences follow each other within a day, and which they are makes no difference.
//
// However many occurrences there are, the work stays with the number of events and days: an event that
// happens each minute is asked twice a day. One thread; the events outlive it.
#pragma once

#include <functional>
#include <optional>
#include <vector>

#include "platform/Date.h"
#include "recurrence/XELEventMath.h"

namespace dayward {

class HHEvent;

/// What evaluates the occurrences of an event.
XELEventMath eventMath(const HHEvent& event);

class OccurrenceGaps {
public:
    /// A day after a moment, however long a day is.
    using DayAfter = std::function<Date(Date)>;
    struct Gap {
        Date from;               ///< an occurrence, or the moment at which all begins
        std::optional<Date> to;  ///< the next occurrence, more than a day later; nothing where none follows
    };

    /// Begins at `from`, as if something happened then, and ends with the first gap that begins after `until`.
    OccurrenceGaps(Date from, Date until, DayAfter dayAfter);
    /// `next` is the event's first occurrence after `from`.
    void add(const HHEvent& event, Date next);

    /// The gaps in order, each once; nothing after the last one.
    [[nodiscard]] std::optional<Gap> nextGap();

private:
    /// An event and an occurrence of it: all others up to there are over or need not be known.
    struct Source {
        const HHEvent* event;
        Date next;
        std::optional<XELEventMath> math = {};
    };
    static bool isLater(const Source& a, const Source& b) { return a.next > b.next; }

    [[nodiscard]] std::optional<Date> laterOccurrence(Date end);
    [[nodiscard]] std::optional<Date> laterOccurrence(Source& source, Date end) const;
    void keep(Source source, std::optional<Date> next);
    [[nodiscard]] Source takeFirst();

    Date at_;  ///< what comes up to here is told
    const Date until_;
    const DayAfter dayAfter_;
    std::vector<Source> sources_;   ///< a heap, the soonest first
    std::optional<Source> runner_;  ///< the one that happens at `at_`: it may well be the next one, too
    bool isOver_ = false;
};

}  // namespace dayward

// A moment before which none of an event's notifications fires, from one or few questions to its rule instead
// of its whole list. Keeps what it works out for alerts, which many events share.
//
// A short-lived helper of one thread. It answers as of the moment at which it was made, in the current
// environment's zone.
#pragma once

#include <memory>
#include <optional>
#include <vector>

#include "intervals/XDIDateInterval.h"
#include "platform/Calendar.h"
#include "platform/Date.h"
#include "platform/DateComponents.h"

namespace dayward {

class HHEvent;

class FirstFireDate {
public:
    struct Answer {
        Date bound;                                      ///< no notification fires before it
        bool isSharp = true;                             ///< nothing better can be said without building the list
        std::optional<Date> firstOccurrence = {};  ///< where it is not sharp: of all that may be announced
    };

    FirstFireDate();

    /// Nothing where the event has no notifications. One question to the rule.
    [[nodiscard]] std::optional<Answer> of(const HHEvent& event);
    /// A sharp bound in place of one that is not, from a question for each alert that needs one.
    [[nodiscard]] std::optional<Date> sharpened(const HHEvent& event, const Answer& answer);

private:
    /// What is known of an alert.
    struct Offset {
        XDIDateInterval alert;
        std::optional<Date> from;     ///< occurrences after it can be announced; nothing: none can
        DateComponents calendarBack;  ///< from the occurrence back to the fire date: years to days,
        TimeInterval lengthBack;      ///< and then a length of time
        bool hasCalendarPart = false, hasMonths = false;
    };

    void setOffsets(const std::vector<XDIDateInterval>& alerts);
    const Offset& offsetOf(const XDIDateInterval& alert);
    [[nodiscard]] Offset makeOffset(const XDIDateInterval& alert) const;
    [[nodiscard]] Date bound(const Offset& offset, Date firstOccurrence) const;

    const std::shared_ptr<const Calendar> calendar_;
    const Date now_;
    std::vector<Offset> known_;
    std::vector<Offset> offsets_;  ///< of the alerts of the event that was asked for last
};

}  // namespace dayward

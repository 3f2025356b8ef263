// The free form of a rule: how often, how many of it, in which months, on which days, until when. Rows
// open with a tap; groups that mean nothing for the frequency are out of sight. It hands its rule over
// each time it goes out of sight. Main thread only.
#pragma once

#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "Classes/Interface/Edit/RRuleState.h"
#include "Classes/Interface/General/NextDates.h"
#include "Classes/Interface/Screens/TableScreen.h"
#include "recurrence/XELFormatter.h"

namespace dayward {

class RRuleExViewController final : public TableScreen {
public:
    using Completion = std::function<void(const std::string&)>;

    /// `start` is the event's, for the dates that the rule comes to.
    RRuleExViewController(const std::optional<std::string>& rrule, EventStart start, Completion completionBlock);

    [[nodiscard]] std::string rrule() const { return state_.rrule(); }
    void setRrule(const std::optional<std::string>& rrule);

    void viewWillDisappear(Disappearance why) override;

protected:
    std::vector<TableSection> makeSections() override;

private:
    [[nodiscard]] TableSection frequencyGroup();
    [[nodiscard]] TableSection monthsOfYearGroup();
    [[nodiscard]] TableSection daysOfMonthGroup();
    [[nodiscard]] TableSection daysOfWeekGroup();
    [[nodiscard]] TableSection customDayGroup();
    [[nodiscard]] TableSection endRepeatGroup();

    [[nodiscard]] const std::vector<std::string>& intervalTitles();
    [[nodiscard]] std::string endText() const;
    /// Puts a number in or takes it out, in the order of the grid.
    void flip(std::vector<std::int64_t>& selected, std::int64_t value, const std::vector<std::int64_t>& all);
    void endRepeat(bool on);
    void endAt(Date picked);

    RRuleState state_;
    EventStart start_;
    Completion completionBlock_;
    XELFormatter formatter_;
    RuleFrequency titlesFrequency_ = RuleFrequency::none;
    std::vector<std::string> intervalTitles_;  ///< of titlesFrequency_
};

}  // namespace dayward

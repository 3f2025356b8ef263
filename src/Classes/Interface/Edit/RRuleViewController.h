// Chooses a rule: a short list of common ones with a way into the free form. A tap on one commits it
// and closes the screen; what the free form makes is always taken. Main thread only.
#pragma once

#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "Classes/Interface/General/NextDates.h"
#include "Classes/Interface/Screens/TableScreen.h"

namespace dayward {

class RRuleViewController final : public TableScreen {
public:
    using Rule = std::optional<std::string>;
    using Completion = std::function<void(const Rule&)>;

    /// `start` is the event's, for the dates that the rule comes to.
    RRuleViewController(Rule rrule, EventStart start, Completion completionBlock);

    [[nodiscard]] const Rule& rrule() const { return rrule_; }

protected:
    std::vector<TableSection> makeSections() override;

private:
    void choose(const Rule& rrule);
    void openCustom();

    Rule rrule_;
    EventStart start_;
    Completion completionBlock_;
    const std::vector<Rule> values_;
};

}  // namespace dayward

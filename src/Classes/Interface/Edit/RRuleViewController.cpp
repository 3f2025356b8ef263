#include "Classes/Interface/Edit/RRuleViewController.h"

#include <algorithm>

#include "Classes/Interface/Edit/RRuleExViewController.h"
#include "Classes/Interface/General/Interface.h"
#include "Classes/Interface/Screens/Presenter.h"
#include "platform/Strings.h"
#include "recurrence/XELRRuleComponents.h"

namespace dayward {

namespace {

std::string rule(RuleFrequency frequency, std::int64_t interval) {
    XELRRuleComponents components;
    components.setFrequency(frequency);
    components.setInterval(interval);
    return components.rrule();
}

std::vector<std::optional<std::string>> presetRules() {
    return {std::nullopt,
            rule(RuleFrequency::minutely, 1),
            rule(RuleFrequency::hourly, 1),
            rule(RuleFrequency::daily, 1),
            rule(RuleFrequency::weekly, 1),
            rule(RuleFrequency::weekly, 2),
            rule(RuleFrequency::monthly, 1),
            rule(RuleFrequency::yearly, 1)};
}

}  // namespace

RRuleViewController::RRuleViewController(Rule rrule, EventStart start, Completion completionBlock)
    : rrule_(std::move(rrule)),
      start_(std::move(start)),
      completionBlock_(std::move(completionBlock)),
      values_(presetRules()) {
    setTitle(localized("Repeat"));
}

std::vector<TableSection> RRuleViewController::makeSections() {
    TableSection presets{"presets", {}, {}, {}};
    for (std::size_t index = 0; index < values_.size(); ++index) {
        const Rule& value = values_[index];
        presets.rows.push_back(checkRow("preset" + std::to_string(index), Interface::descriptionRRule(value),
                                        value == rrule_, [this, value] { choose(value); }));
    }
    const bool isCustom = std::ranges::find(values_, rrule_) == values_.end();
    TableSection custom{"custom", {}, isCustom ? Interface::descriptionRRule(rrule_) : std::string(), {}};
    custom.rows.push_back(checkRow("custom", localized("Custom"), isCustom, [this] { openCustom(); }));
    custom.rows.back().opensScreen = true;

    std::vector<TableSection> sections{std::move(presets), std::move(custom)};
    auto next = rrule_ ? nextDatesSection(rrule_, start_) : std::nullopt;
    if (next) sections.push_back(*std::move(next));
    return sections;
}

void RRuleViewController::choose(const Rule& rrule) {
    rrule_ = rrule;
    completionBlock_(rrule_);
    presenter().pop(*this);
}

void RRuleViewController::openCustom() {
    const auto take = [self = std::weak_ptr(std::static_pointer_cast<RRuleViewController>(shared_from_this()))](
                          const std::string& rrule) {
        const auto screen = self.lock();
        if (!screen) return;
        screen->rrule_ = rrule;
        screen->reloadData();
        screen->completionBlock_(rrule);
    };
    presenter().push(*this, std::make_shared<RRuleExViewController>(rrule_, start_, take));
}

}  // namespace dayward

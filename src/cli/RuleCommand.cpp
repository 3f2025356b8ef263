// dayward rule next|between|last|describe|normalize|batch
#include <CLI/CLI.hpp>
#include <iostream>
#include <memory>

#include "cli/Arguments.h"
#include "cli/Command.h"
#include "cli/Output.h"
#include "intervals/ISODate.h"
#include "recurrence/RuleBatch.h"
#include "recurrence/XELEventMath.h"
#include "recurrence/XELFormatter.h"
#include "recurrence/XELRRuleComponents.h"
#include "recurrence/XELRRuleMath.h"

namespace dayward {

namespace {

struct RuleArguments {
    std::string rule, start, after, from, to;
    std::vector<std::string> times;
    std::size_t count = 1;
    std::size_t most = 30;
};

/// A rule asked from its start itself, or, with times of day, over the day of the start.
class Question {
public:
    static Result<Question> of(const RuleArguments& arguments) {
        Question question;
        question.rule_ = arguments.rule;
        question.start_ = TRY(parseMoment(arguments.start));
        for (const std::string& time : arguments.times) question.times_.push_back(TRY(parseTimeOfDay(time)));
        return question;
    }

    [[nodiscard]] std::optional<Date> after(Date date) const {
        return times_.empty() ? XELRRuleMath(rule_, start_).dateAfterDate(date) : event().dateAfterDate(date);
    }
    [[nodiscard]] std::vector<Date> between(Date from, Date to, std::size_t most) const {
        return times_.empty() ? XELRRuleMath(rule_, start_).datesFromDate(from, to, most)
                              : event().datesFromDate(from, to, most);
    }
    [[nodiscard]] std::optional<Date> last() const {
        return times_.empty() ? XELRRuleMath(rule_, start_).lastDate() : event().lastDate();
    }

private:
    [[nodiscard]] XELEventMath event() const { return {rule_, start_, times_}; }

    std::string rule_;
    Date start_;
    std::vector<std::int64_t> times_;
};

void printDates(const std::vector<Date>& dates, bool json) {
    if (json) return printJSON(datesJSON(dates));
    for (const Date date : dates) printLine(isoText(date));
}

Result<> answerNext(const RuleArguments& arguments, bool json) {
    const Question question = TRY(Question::of(arguments));
    Date after = TRY(parseMoment(arguments.after));
    std::vector<Date> dates;
    while (dates.size() < arguments.count) {
        const std::optional<Date> next = question.after(after);
        if (!next || *next <= after) break;
        dates.push_back(*next);
        after = *next;
    }
    printDates(dates, json);
    return {};
}

Result<> answerBetween(const RuleArguments& arguments, bool json) {
    const Question question = TRY(Question::of(arguments));
    const Date from = TRY(parseMoment(arguments.from));
    const Date to = TRY(parseMoment(arguments.to));
    printDates(question.between(from, to, arguments.most), json);
    return {};
}

Result<> answerLast(const RuleArguments& arguments, bool json) {
    const Question question = TRY(Question::of(arguments));
    const std::optional<Date> last = question.last();
    printDates(last ? std::vector<Date>{*last} : std::vector<Date>{}, json);
    return {};
}

void printText(const std::optional<std::string>& text, bool json) {
    if (json) return printJSON({{"text", text ? JSON(*text) : JSON(nullptr)}});
    printLine(text.value_or("-"));
}

Result<> answerBatch() {
    std::string line;
    while (std::getline(std::cin, line)) std::cout << answerRuleRequest(line) << '\n';
    return {};
}

void addEvaluations(CLI::App& rule, ChosenCommand& chosen, const std::shared_ptr<RuleArguments>& arguments) {
    const auto common = [&](const char* name, const char* description) {
        CLI::App* command = rule.add_subcommand(name, description);
        command->add_option("rule", arguments->rule, "The rule string")->required();
        command->add_option("--start", arguments->start, "The first occurrence")->required();
        command->add_option("--time", arguments->times, "A time of day, HH:MM")->allow_extra_args(false);
        return command;
    };
    CLI::App* next = common("next", "The next occurrences after a moment");
    next->add_option("--after", arguments->after, "Strictly after this moment")->required();
    next->add_option("--count", arguments->count, "How many")->check(CLI::Range(1, 100000));
    next->callback([arguments, &chosen] {
        chosen.action = [arguments](Environment&, const GlobalOptions& options) { return answerNext(*arguments, options.json); };
    });
    CLI::App* between = common("between", "The occurrences of a range");
    between->add_option("--from", arguments->from, "Strictly after this moment")->required();
    between->add_option("--to", arguments->to, "Not after this moment")->required();
    between->add_option("--max", arguments->most, "At most so many, 30 unless told")->check(CLI::Range(1, 1000000));
    between->callback([arguments, &chosen] {
        chosen.action = [arguments](Environment&, const GlobalOptions& options) { return answerBetween(*arguments, options.json); };
    });
    CLI::App* last = common("last", "The last occurrence of a rule with an end");
    last->callback([arguments, &chosen] {
        chosen.action = [arguments](Environment&, const GlobalOptions& options) { return answerLast(*arguments, options.json); };
    });
}

void addTexts(CLI::App& rule, ChosenCommand& chosen, const std::shared_ptr<RuleArguments>& arguments) {
    CLI::App* describe = rule.add_subcommand("describe", "A rule in words");
    describe->add_option("rule", arguments->rule, "The rule string")->required();
    describe->callback([arguments, &chosen] {
        chosen.action = [arguments](Environment&, const GlobalOptions& options) -> Result<> {
            printText(XELFormatter().stringForRRule(arguments->rule), options.json);
            return {};
        };
    });
    CLI::App* normalize = rule.add_subcommand("normalize", "A rule in the form in which it is stored");
    normalize->add_option("rule", arguments->rule, "The rule string")->required();
    normalize->callback([arguments, &chosen] {
        chosen.action = [arguments](Environment&, const GlobalOptions& options) -> Result<> {
            printText(XELRRuleComponents(arguments->rule).rfc2445String(), options.json);
            return {};
        };
    });
}

}  // namespace

void addRuleCommand(CLI::App& app, ChosenCommand& chosen) {
    CLI::App* rule = app.add_subcommand("rule", "Ask a recurrence rule")->require_subcommand(1);
    rule->parse_complete_callback([&chosen] { chosen.needsStore = false; });
    const auto arguments = std::make_shared<RuleArguments>();
    addEvaluations(*rule, chosen, arguments);
    addTexts(*rule, chosen, arguments);
    rule->add_subcommand("batch", "Answer one request a line of standard input")->callback([&chosen] {
        chosen.action = [](Environment&, const GlobalOptions&) { return answerBatch(); };
    });
}

}  // namespace dayward

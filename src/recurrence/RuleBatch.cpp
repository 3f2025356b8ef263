#include "recurrence/RuleBatch.h"

#include <charconv>
#include <optional>
#include <vector>

#include "intervals/ISODate.h"
#include "platform/Result.h"
#include "recurrence/XELFormatter.h"
#include "recurrence/XELRRuleComponents.h"
#include "recurrence/XELRRuleMath.h"

namespace dayward {

namespace {

using Fields = std::vector<std::string_view>;
constexpr std::size_t kMaximumDates = 1'000'000;
constexpr std::string_view kNone = "-";

struct Request {
    std::string_view name;
    std::size_t fields;  ///< with the name
    Result<std::string> (*answer)(const Fields& fields);
};

std::unexpected<Error> unreadable(std::string_view what, std::string_view text) {
    return failure("rule request", 0, {{"reason", std::string(what) + " \"" + std::string(text.substr(0, 80)) + "\""}});
}

std::optional<std::string> ruleOf(std::string_view text) {
    return text.empty() || text == kNone ? std::nullopt : std::optional<std::string>(text);
}

Result<Date> dateOf(std::string_view text) {
    const auto date = dateFromISOText(text);
    if (!date) return unreadable("not a date:", text);
    return *date;
}

std::string textOf(Date date) { return isoText(date); }
std::string textOf(std::optional<Date> date) { return date ? textOf(*date) : std::string(kNone); }

Result<std::string> next(const Fields& fields) {
    const Date start = TRY(dateOf(fields[2]));
    const Date after = TRY(dateOf(fields[3]));
    return textOf(XELRRuleMath::dateAfterDate(after, ruleOf(fields[1]), start));
}

Result<std::string> between(const Fields& fields) {
    const Date start = TRY(dateOf(fields[2]));
    const Date from = TRY(dateOf(fields[3]));
    const Date to = TRY(dateOf(fields[4]));
    const std::string_view limit = fields[5];
    std::size_t maxCount = 0;
    const auto [end, error] = std::from_chars(limit.data(), limit.data() + limit.size(), maxCount);
    if (error != std::errc() || end != limit.data() + limit.size() || maxCount > kMaximumDates) {
        return unreadable("not a number up to 1000000:", limit);
    }
    std::string text;
    for (const Date date : XELRRuleMath(ruleOf(fields[1]), start).datesFromDate(from, to, maxCount)) {
        if (!text.empty()) text += ' ';
        text += textOf(date);
    }
    return text.empty() ? std::string(kNone) : text;
}

Result<std::string> last(const Fields& fields) {
    const Date start = TRY(dateOf(fields[2]));
    return textOf(XELRRuleMath(ruleOf(fields[1]), start).lastDate());
}

Result<std::string> describe(const Fields& fields) {
    const auto rule = ruleOf(fields[1]);
    const auto text = rule ? XELFormatter().stringForRRule(*rule) : std::nullopt;
    return text && !text->empty() ? *text : std::string(kNone);
}

Result<std::string> normalize(const Fields& fields) { return XELRRuleComponents(fields[1]).rfc2445String(); }

constexpr Request kRequests[] = {
    {"next", 4, next}, {"between", 6, between}, {"last", 3, last}, {"describe", 2, describe}, {"normalize", 2, normalize},
};

Fields splitAtTabs(std::string_view line) {
    Fields fields;
    for (;;) {
        const std::size_t end = line.find('\t');
        fields.push_back(line.substr(0, end));
        // No request has so many fields: the rest of a hostile line is not looked at.
        if (end == std::string_view::npos || fields.size() > 8) return fields;
        line.remove_prefix(end + 1);
    }
}

Result<std::string> answer(std::string_view line) {
    const Fields fields = splitAtTabs(line);
    for (const Request& request : kRequests) {
        if (request.name != fields[0]) continue;
        if (fields.size() != request.fields) {
            return unreadable("expected " + std::to_string(request.fields - 1) + " fields after", request.name);
        }
        return request.answer(fields);
    }
    return unreadable("no such request:", fields[0]);
}

}  // namespace

std::string answerRuleRequest(std::string_view line) {
    if (line.ends_with('\r')) line.remove_suffix(1);
    const auto result = answer(line);
    return result ? *result : "error: " + result.error().userInfo.at("reason");
}

}  // namespace dayward

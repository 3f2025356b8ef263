#include "agent/desktop/AlertTexts.h"

#include <algorithm>
#include <nlohmann/json.hpp>

#include "platform/Calendar.h"
#include "platform/DateFormatter.h"
#include "platform/Environment.h"
#include "platform/Markup.h"
#include "platform/NumberFormatter.h"
#include "platform/PercentFormat.h"
#include "platform/PluralRules.h"
#include "platform/Strings.h"

namespace dayward {

namespace {

constexpr const char* kProgram = "Dayward";
constexpr std::size_t kDigestLines = 10;

std::string numberText(std::size_t number) {
    return NumberFormatter(Environment::current().locale(), 0, 0).string(static_cast<double>(number));
}

/// "3 missed alerts". The key's text is an object of its forms by PluralRules.
std::string countText(const char* key, std::size_t count) {
    const auto forms = nlohmann::json::parse(localized(key), nullptr, /*allow_exceptions=*/false);
    std::string words = key;
    if (forms.is_object()) {
        const auto form = PluralRules(Environment::current().locale()).form(static_cast<double>(count));
        words = forms.value(form, forms.value("other", words));
    }
    return numberText(count) + " " + words;
}

/// The time of day, and the day where it is not today.
std::string timeText(Date date) {
    using Style = DateFormatter::Style;
    const Environment& environment = Environment::current();
    const auto today = environment.calendar()->rangeOfUnit(CalendarUnit::day, environment.now());
    const bool isToday = today && date >= today->start && date < today->start + today->length;
    const Style day = isToday ? Style::none : Style::medium;
    return DateFormatter::withStyles(day, Style::short_, environment.locale(), environment.timeZone())
        .stringFromDate(date);
}

std::string inBody(const std::string& text, BodyKind body) { return body == BodyKind::markup ? markupOfText(text) : text; }

std::string wordsOf(const DueAlert& alert) { return alert.notification.alertBody.value_or(std::string()); }

}  // namespace

AlertText textOfAlert(const DueAlert& alert, BodyKind body) {
    const std::string words = wordsOf(alert);
    const std::string time = alert.isLate ? timeText(alert.due) : std::string();
    if (body == BodyKind::none) return {time.empty() ? words : time + " – " + words, {}};
    return {kProgram, inBody(time.empty() ? words : words + "\n" + time, body)};
}

AlertText textOfDigest(const std::vector<DueAlert>& alerts, BodyKind body) {
    AlertText text{countText("missed alerts", alerts.size()), {}};
    if (body == BodyKind::none) return text;
    const std::size_t shown = alerts.size() > kDigestLines ? kDigestLines - 1 : alerts.size();
    for (std::size_t i = 0; i < shown; ++i) {
        text.body += (i == 0 ? "" : "\n") + timeText(alerts[i].due) + " – " + wordsOf(alerts[i]);
    }
    if (shown < alerts.size())
        text.body += "\n" + formatText(localized("and %@ more"), {numberText(alerts.size() - shown)});
    text.body = inBody(text.body, body);
    return text;
}

LocalNotification notificationOfDigest(const std::vector<DueAlert>& alerts) {
    const AlertText text = textOfDigest(alerts, BodyKind::plain);
    LocalNotification digest = alerts.back().notification;
    digest.alertBody = text.summary + "\n" + text.body;
    const auto sounds = [](const DueAlert& alert) { return alert.notification.soundName.has_value(); };
    const auto first = std::ranges::find_if(alerts, sounds);
    digest.soundName = first == alerts.end() ? std::nullopt : first->notification.soundName;
    return digest;
}

std::string snoozeLabel(Snooze snooze) {
    switch (snooze) {
        case Snooze::tenMinutes: return localized("In 10 minutes");
        case Snooze::oneHour: return localized("In 1 hour");
        case Snooze::tomorrow: return localized("Tomorrow");
    }
    return {};
}

}  // namespace dayward

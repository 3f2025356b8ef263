#include "Classes/Other/Date/EventDateText.h"

#include "platform/Environment.h"

namespace dayward {

std::string EventDateText::textFromDate(Date date, EventDateTextParts parts) {
    return Environment::current().shared<EventDateText>().text(date, parts);
}

EventDateText::EventDateText(Environment& environment) : environment_(environment), zone_(environment.timeZone()) {}

std::size_t EventDateText::KeyHash::operator()(const Key& key) const {
    return std::hash<double>{}(key.first) * 31 + key.second;
}

std::string EventDateText::text(Date date, EventDateTextParts parts) {
    const Key key{date.secondsSince1970(), parts};
    const Lock lock(mutex_);
    followZoneAndYear();
    if (const auto* kept = keptText(key)) return *kept;
    const auto dateTemplate = templateFor(date, parts);
    return keepText(key, dateTemplate.empty() ? "" : formatterFor(dateTemplate).stringFromDate(date));
}

void EventDateText::followZoneAndYear() {
    const auto calendar = environment_.calendar();
    const auto year = calendar->fields(environment_.now()).year;
    if (year == presentYear_ && calendar->timeZone() == zone_) return;
    presentYear_ = year;
    zone_ = calendar->timeZone();
    newerTexts_.clear();
    olderTexts_.clear();
    formatters_.clear();
}

const std::string* EventDateText::keptText(const Key& key) {
    if (const auto found = newerTexts_.find(key); found != newerTexts_.end()) return &found->second;
    const auto found = olderTexts_.find(key);
    if (found == olderTexts_.end()) return nullptr;
    return &keepText(key, std::move(found->second));
}

const std::string& EventDateText::keepText(const Key& key, std::string text) {
    if (newerTexts_.size() >= kMaximumTexts / 2) {
        olderTexts_ = std::move(newerTexts_);
        newerTexts_.clear();
    }
    return newerTexts_.insert_or_assign(key, std::move(text)).first->second;
}

std::string EventDateText::templateFor(Date date, EventDateTextParts parts) const {
    const auto fields = environment_.calendar()->fields(date);
    std::string dateTemplate;
    if ((parts & EventDateTextYear) != 0 && fields.year != presentYear_) dateTemplate += "y";
    if ((parts & EventDateTextMonth) != 0) dateTemplate += "MMMM";
    if ((parts & EventDateTextWeekday) != 0) dateTemplate += "EEEE";
    if ((parts & EventDateTextDay) != 0) dateTemplate += "d";
    if ((parts & EventDateTextTime) != 0 && (fields.hour != 0 || fields.minute != 0)) dateTemplate += "jmm";
    return dateTemplate;
}

const DateFormatter& EventDateText::formatterFor(const std::string& dateTemplate) {
    auto found = formatters_.find(dateTemplate);
    if (found == formatters_.end()) {
        const auto locale = environment_.locale();
        const auto pattern = DateFormatter::dateFormatFromTemplate(dateTemplate, locale);
        found = formatters_.emplace(dateTemplate, DateFormatter::withPattern(pattern, locale, zone_)).first;
    }
    return found->second;
}

}  // namespace dayward

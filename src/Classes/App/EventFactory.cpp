#include "Classes/App/EventFactory.h"

#include "Classes/Category/CategoryLocalStore.h"
#include "Classes/Category/ColorEventBackgroundPicture.h"
#include "Classes/Category/EventCategory.h"
#include "Classes/Category/NamedEventBackgroundPicture.h"
#include "Classes/Category/NamedEventIconPicture.h"
#include "Classes/Settings/AppSettings.h"
#include "platform/DateFormatter.h"
#include "platform/Environment.h"
#include "platform/FatalError.h"
#include "platform/Locale.h"
#include "platform/Strings.h"
#include "recurrence/XELRRule.h"
#include "recurrence/XELRRuleComponents.h"

namespace dayward {
namespace {

using Background = std::shared_ptr<EventBackgroundPicture>;

constexpr const char* kHolidayCategory = "Holiday";
constexpr const char* kHolidayFont = "ChalkboardSE-Bold";
constexpr const char* kDateFormat = "yyyy-MM-dd";
constexpr int kDaysToBirthday = 15;

struct Example {
    const char* name;
    Date date;
    std::string rrule;
    const char* icon;
    Background background;
    std::optional<Color> textColor;
};

Date dateOfText(const char* text) {
    // The user's locale may write its digits otherwise.
    const Locale locale("en_US_POSIX");
    const auto formatter = DateFormatter::withPattern(kDateFormat, locale, Environment::current().timeZone());
    const auto date = formatter.dateFromString(text);
    if (!date) fatalError(std::string("no date: ") + text);
    return *date;
}

/// The start of a day from today on. Days are counted on the calendar: where the clocks go back on the way,
/// that many times 24 hours end on the day before.
Date startOfDayAhead(int days) {
    const auto& environment = Environment::current();
    const auto calendar = environment.calendar();
    auto fields = calendar->fields(environment.now());
    fields.day += days;
    fields.hour = fields.minute = fields.second = 0;
    return calendar->date(fields);
}

std::string yearly() { return XELRRule::rruleForFrequency(RuleFrequency::yearly); }

XELRRuleComponents every(RuleFrequency frequency, XELRecurrenceDayOfWeek day) {
    XELRRuleComponents components;
    components.setFrequency(frequency);
    components.setInterval(1);
    components.setDaysOfWeek(XELRRuleComponents::DaysOfWeek{day});
    return components;
}

std::string secondSundayOfMay() {
    auto components = every(RuleFrequency::yearly, XELRecurrenceDayOfWeek::dayOfWeek(1, 2));
    components.setMonthsOfYear(XELRRuleComponents::Numbers{5});
    return components.rrule();
}

std::string fridayTheThirteenth() {
    auto components = every(RuleFrequency::monthly, XELRecurrenceDayOfWeek::dayOfWeek(6));
    components.setDaysOfMonth(XELRRuleComponents::Numbers{13});
    return components.rrule();
}

std::string lastMondayOfMonth() {
    return every(RuleFrequency::monthly, XELRecurrenceDayOfWeek::dayOfWeek(2, -1)).rrule();
}

Background named(const char* name) { return std::make_shared<NamedEventBackgroundPicture>(name); }

Background colored(Color color) { return std::make_shared<ColorEventBackgroundPicture>(color); }

std::vector<Example> examples() {
    constexpr Color kDarkRed{0.66, 0, 0, 1};
    return {
        {"My Birthday", startOfDayAhead(kDaysToBirthday), yearly(), "smile_lol.png", named("bg-37.jpg"), {}},
        {"Christmas", dateOfText("2016-12-25"), yearly(), "Christmas Tree.png", named("bg-58.jpg"), {}},
        {"Valentine's Day", dateOfText("2016-02-14"), yearly(), "heart4.png", colored({1, 0.66, 0.66, 1}), kDarkRed},
        {"Mother's Day", dateOfText("2016-01-01"), secondSundayOfMay(), "flower_bouquet.png", named("bg-69.jpg"),
         kDarkRed},
        {"Friday 13th", dateOfText("2016-01-01"), fridayTheThirteenth(), "bomb.png", named("bg-62.jpg"), {}},
        {"Payday", dateOfText("2016-01-01"), lastMondayOfMonth(), "cards.png", named("bg-72.jpg"), {}},
        {"Last day of school", dateOfText("2016-06-28"), yearly(), "school.png", colored({0.66, 0.66, 1, 1}),
         Color{0, 0, 0.66, 1}},
    };
}

std::shared_ptr<HHEvent> eventOf(const Example& example) {
    auto event = EventFactory::createEvent();
    event->setName(localized(example.name));
    event->setDate(example.date);
    event->setRrule(example.rrule);
    event->setIcon(std::make_shared<NamedEventIconPicture>(example.icon));
    event->setBackground(example.background);
    event->appearance().textColor = example.textColor;
    event->setIntervalFormat(HHEventDateFormat());
    return event;
}

void prepareHolidayCategory() {
    auto& categories = CategoryLocalStore::shared();
    const auto holiday = categories.categoryWithName(localized(kHolidayCategory), CategoryLocalStore::Initialize::yes);
    auto changed = std::make_shared<EventCategory>(*holiday);
    changed->eventFont = kHolidayFont;
    categories.updateCategory(changed, CategoryLocalStore::Initialize::yes);
}

}  // namespace

std::shared_ptr<HHEvent> EventFactory::createEvent() {
    auto event = std::make_shared<HHEvent>();
    event->alerts().list = AppSettings::defaultAlerts();
    event->alerts().soundName = AppSettings::defaultSoundName();
    event->setTimes({AppSettings::defaultTime()});
    event->setIntervalFormat(AppSettings::defaultIntervalFormat());
    const auto category = CategoryLocalStore::shared().defaultCategory();
    event->setCategoryKey(category->key);
    if (category->eventBackgroundTpl && category->eventBackgroundTpl->isRandom()) {
        event->setRandomBackground(category->eventBackgroundTpl->getPicture());
    }
    return event;
}

std::vector<std::shared_ptr<HHEvent>> EventFactory::getDefaultEvents() {
    prepareHolidayCategory();
    std::vector<std::shared_ptr<HHEvent>> events;
    for (const auto& example : examples()) events.push_back(eventOf(example));
    return events;
}

}  // namespace dayward

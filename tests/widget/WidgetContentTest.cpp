#include "widget/WidgetContent.h"

#include <gtest/gtest.h>

#include <random>

#include "alerts/WidgetEvent.h"
#include "platform/KeyedArchiver.h"
#include "support/GalleryResources.h"
#include "widget/WidgetText.h"

namespace dayward {
namespace {

class WidgetContentTest : public ::testing::Test {
protected:
    std::shared_ptr<WidgetEvent> event(const std::string& name, std::string_view day, std::int64_t minutes = 0) {
        auto made = std::make_shared<WidgetEvent>(name);
        made->name = name;
        made->setDate(environment.at(day));
        made->setTimes({minutes});
        events.push_back(made);
        return made;
    }
    std::vector<std::string> names(WidgetType type, std::size_t count = kMaximalWidgetEvents) {
        std::vector<std::string> names;
        for (const WidgetRow& row : widgetContent(events, type, count).rows) names.push_back(*row.event->name);
        return names;
    }
    std::string line(WidgetFormat format, std::size_t count = 1) {
        const WidgetTextOptions options{format, count};
        const auto type = WidgetType::selectedEvents;
        return widgetText(widgetContent(events, type, rowsNeeded(options)), type, options);
    }

    GalleryResources resources;
    TestEnvironment environment{resources.options()};  // 2026-03-10T12:00:00
    std::vector<std::shared_ptr<WidgetEvent>> events;
};

TEST_F(WidgetContentTest, TodaysEventsStandByTimeBeforeThoseThatComeNext) {
    event("next week", "2026-03-17");
    event("evening", "2026-03-10", 1200);
    event("this morning", "2026-03-10", 540);
    event("over", "2026-03-09");
    event("running", "2026-03-08")->setDuration(TimeInterval(4 * 86400));
    event("tomorrow", "2026-03-11");
    EXPECT_EQ(names(WidgetType::todaysEvents), (std::vector<std::string>{"running", "this morning", "evening",
                                                                         "tomorrow", "next week"}));
    EXPECT_EQ(names(WidgetType::todaysEvents, 2), (std::vector<std::string>{"running", "this morning"}));
    EXPECT_EQ(names(WidgetType::selectedEvents, 2), (std::vector<std::string>{"next week", "evening"}));
}

TEST_F(WidgetContentTest, NoTextBreaksTheLineOrTheMarkup) {
    event("A\nb <i>\"&\"</i> \xE2\x80\xAE", "2026-03-13");
    EXPECT_EQ(line(WidgetFormat::text).find('\n'), std::string::npos);
    const std::string bar = line(WidgetFormat::waybar);
    EXPECT_EQ(bar.find('\n'), std::string::npos);
    EXPECT_EQ(bar.find("<i>"), std::string::npos);
    EXPECT_NE(bar.find(R"(&lt;i&gt;\"&amp;\"&lt;)"), std::string::npos) << bar;
    EXPECT_EQ(line(WidgetFormat::json).find('\n'), std::string::npos);
}

TEST_F(WidgetContentTest, ShowsNothingWithoutEvents) {
    EXPECT_EQ(line(WidgetFormat::text), "");
    EXPECT_EQ(line(WidgetFormat::waybar), R"({"text":"","alt":"none","tooltip":"No events","class":"none"})");
    EXPECT_FALSE(widgetContent(events, WidgetType::todaysEvents, 3).changesAt);
}

/// All that is shown, as one text.
std::string shown(const WidgetContent& content) {
    std::string text;
    for (const WidgetRow& row : content.rows) {
        text += row.event->key() + '|' + row.title + '|' + row.date + '|' + row.countdown.value_or("-") +
                (row.isToday ? "|today\n" : "\n");
    }
    return text;
}

/// Between the moments that the content names, it must be the same at every step.
void expectNoChangeUnseen(TestEnvironment& environment, const std::vector<std::shared_ptr<WidgetEvent>>& events,
                          TimeInterval step, int steps) {
    WidgetContent content = widgetContent(events, WidgetType::todaysEvents, 4);
    std::string last = shown(content);
    for (int i = 0; i < steps; ++i) {
        environment.clock->advance(step);
        const Date now = environment->now();
        while (content.changesAt && *content.changesAt <= now) {
            environment.clock->set(*content.changesAt);
            const Date moment = *content.changesAt;
            content = widgetContent(events, WidgetType::todaysEvents, 4);
            last = shown(content);
            ASSERT_GT(*content.changesAt, moment) << "it would never come to rest";
            environment.clock->set(now);
        }
        ASSERT_EQ(shown(widgetContent(events, WidgetType::todaysEvents, 4)), last)
            << environment.text(now) << " " << environment->timeZone().name();
    }
}

TEST(WidgetChanges, AreNamedToTheSecondInEveryUnitAndOverChangesOfOffset) {
    std::mt19937 random(20260329);
    const auto whole = [&](std::int64_t least, std::int64_t most) {
        return std::uniform_int_distribution<std::int64_t>(least, most)(random);
    };
    const GalleryResources resources;
    // The clocks go forward and back within the hours that are walked through.
    for (const auto& [zone, start] : {std::pair("Europe/Berlin", "2026-03-28T23:10:00"),
                                      std::pair("America/New_York", "2026-10-31T22:50:00"),
                                      std::pair("UTC", "2026-12-31T21:30:00")}) {
        for (int round = 0; round < 6; ++round) {
            TestEnvironment::Options options = resources.options();
            options.zone = zone;
            options.now = start;
            TestEnvironment environment(options);
            std::vector<std::shared_ptr<WidgetEvent>> events;
            for (int i = 0; i < 6; ++i) {
                auto event = std::make_shared<WidgetEvent>("e" + std::to_string(i));
                event->setDate(environment.at(start) + TimeInterval(static_cast<double>(whole(-3, 40)) * 86400));
                event->setTimes({whole(0, 1439)});
                if (whole(0, 2) == 0) event->setDuration(TimeInterval(static_cast<double>(whole(60, 20000))));
                if (whole(0, 1) == 0) event->setRrule("FREQ=DAILY;INTERVAL=1");
                CalendarUnits units;
                for (const auto unit : {CalendarUnit::month, CalendarUnit::day, CalendarUnit::hour, CalendarUnit::minute}) {
                    if (whole(0, 2) == 0) units |= unit;
                }
                event->intervalFormat = {units.isEmpty() ? CalendarUnits(CalendarUnit::day) : units, TextStyle::full};
                events.push_back(event);
            }
            environment.clock->advance(TimeInterval(0.5));
            expectNoChangeUnseen(environment, events, TimeInterval(11), 2000);
            if (testing::Test::HasFatalFailure()) return;
        }
    }
}

}  // namespace
}  // namespace dayward

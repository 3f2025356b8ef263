#include "Classes/Share/TextActivitySource.h"

#include <gtest/gtest.h>

#include "Classes/Event/HHEvent.h"
#include "platform/Environment.h"
#include "support/TestEnvironment.h"

namespace dayward {
namespace {

class SharedText : public testing::Test {
protected:
    /// The text of an event that lies so many seconds from now.
    std::string textAt(double seconds, std::optional<std::string> name = "Launch",
                       CalendarUnits units = CalendarUnit::day | CalendarUnit::hour) {
        // The date of an event counts to the minute, so the clock moves instead.
        const auto event = std::make_shared<HHEvent>("a");
        event->setDate(environment.at("2026-03-20"));
        event->setName(std::move(name));
        event->intervalFormat().units = units;
        environment.clock->set(environment.at("2026-03-20") - TimeInterval(seconds));
        return TextActivitySource(event).text();
    }

    TestEnvironment environment;
};

TEST_F(SharedText, TellsHappeningComingAndOver) {
    EXPECT_EQ(textAt(0), "Launch is happening!");
    EXPECT_EQ(textAt(-30), "Launch is happening!");
    EXPECT_EQ(textAt(-60), "Launch is happening!");
    EXPECT_EQ(textAt(-86400 * 2, "Launch", CalendarUnit::day), "Launch - has come 2 Days back!");
    EXPECT_TRUE(textAt(-61).starts_with("Launch - has come ")) << textAt(-61);
    EXPECT_TRUE(textAt(30).starts_with("Launch - is coming in ")) << textAt(30);
    EXPECT_EQ(textAt(86400 * 3, std::nullopt, CalendarUnit::day), "??? - is coming in 3 Days!");
}

TEST_F(SharedText, ASecondSentenceTellsTheWholeInEachUnit) {
    EXPECT_EQ(textAt(86400 * 2 + 3600 * 3), "Launch - is coming in 2 Days, 3 Hours!\n\nThat is 2 Days, 51 Hours!");
    EXPECT_EQ(textAt(86400 * 2, "Launch", CalendarUnit::day), "Launch - is coming in 2 Days!");
}

TEST_F(SharedText, TheSubjectNamesTheEvent) {
    const auto event = std::make_shared<HHEvent>("a");
    EXPECT_EQ(TextActivitySource(event).subject(), "Countdown to ???");
    event->setName("100% %@");
    EXPECT_EQ(TextActivitySource(event).subject(), "Countdown to 100% %@");
}

}  // namespace
}  // namespace dayward

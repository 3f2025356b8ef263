#include "alerts/MissedEventsHelper.h"

#include <gtest/gtest.h>

#include "platform/UserDefaults.h"
#include "support/TestEnvironment.h"

namespace dayward {
namespace {

TEST(MissedEvents, KeepTheirOrderAcrossStartsAndAreClearedWhole) {
    TestEnvironment first;
    EXPECT_TRUE(MissedEventsHelper::missedEvents().empty());
    MissedEventsHelper::setMissedEvents({"b", "a"});
    EXPECT_TRUE(MissedEventsHelper::isMissed("a"));
    EXPECT_FALSE(MissedEventsHelper::isMissed("c"));

    TestEnvironment::Options options;
    options.home = first.home;
    TestEnvironment second(options);
    EXPECT_EQ(MissedEventsHelper::missedEvents(), (std::vector<std::string>{"b", "a"}));
    MissedEventsHelper::clear();
    EXPECT_FALSE(MissedEventsHelper::isMissed("a"));
    EXPECT_TRUE(second->standardDefaults().objectForKey(MissedEventsHelper::kMissedEventsKey).isNull());
}

TEST(MissedEvents, AnotherTypeInTheDefaultsReadsAsEmpty) {
    TestEnvironment environment;
    environment->standardDefaults().setObject("no list", MissedEventsHelper::kMissedEventsKey);
    EXPECT_TRUE(MissedEventsHelper::missedEvents().empty());
    environment->standardDefaults().setObject(Array{1, "kept", Data{1}}, MissedEventsHelper::kMissedEventsKey);
    MissedEventsHelper::reload();
    EXPECT_EQ(MissedEventsHelper::missedEvents(), std::vector<std::string>{"kept"});
}

}  // namespace
}  // namespace dayward

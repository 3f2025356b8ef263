#include "platform/RepeatingTimer.h"

#include <gtest/gtest.h>

#include "platform/DispatchQueue.h"
#include "support/TestEnvironment.h"

namespace dayward {
namespace {

TEST(RepeatingTimer, KeepsItsBeatWhateverATurnTakesAndTheClockDoes) {
    const TestEnvironment environment;
    const Date start = environment->now();
    std::vector<double> turns;
    std::vector<double> jumps = {0.3, 2.5, -100, 0, 0};
    repeatEvery(TimeInterval(1), environment.queues->main(), [&] {
        turns.push_back((environment->now() - start).seconds());
        environment.clock->advance(TimeInterval(jumps.at(turns.size() - 1)));
        return turns.size() < jumps.size();
    });
    for (int i = 0; i < 200; ++i) environment.queues->advance(TimeInterval(0.5));
    ASSERT_EQ(turns.size(), 5U);
    EXPECT_EQ(turns[1], 2) << "late by 0.3, and made up for";
    EXPECT_EQ(turns[2] - turns[1], 3.5) << "missed turns are left out";
    EXPECT_EQ(turns[3] - turns[2], -99) << "the clock was set back";
    EXPECT_EQ(turns[4] - turns[3], 1);
}

}  // namespace
}  // namespace dayward

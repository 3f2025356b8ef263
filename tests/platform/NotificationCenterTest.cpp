#include "platform/NotificationCenter.h"

#include <gmock/gmock.h>

#include <atomic>
#include <latch>
#include <thread>

namespace dayward {

namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using Observation = NotificationCenter::Observation;

class Notifications : public testing::Test {
protected:
    NotificationCenter::Handler remember(std::string text) {
        return [this, text = std::move(text)](const Notification&) { calls.push_back(text); };
    }

    std::shared_ptr<NotificationCenter> center = std::make_shared<NotificationCenter>();
    std::vector<std::string> calls;
};

TEST_F(Notifications, ofOneObjectReachOnlyItsObservers) {
    const int sender = 0;
    const int stranger = 0;
    const auto any = center->addObserver("a", remember("any"));
    const auto own = center->addObserver("a", remember("own"), &sender);
    center->post("a", &stranger);
    center->post("a", &sender);
    EXPECT_THAT(calls, ElementsAre("any", "any", "own"));
}

TEST_F(Notifications, endWithTheObservationAndItsReplacement) {
    auto observation = center->addObserver("a", remember("old"));
    observation = center->addObserver("a", remember("new"));
    center->post("a", nullptr);
    auto moved = std::move(observation);
    center->post("a", nullptr);
    moved.end();
    moved.end();
    center->post("a", nullptr);
    EXPECT_THAT(calls, ElementsAre("new", "new"));
}

TEST_F(Notifications, mayEndTheirOwnObservationAndThoseOfLaterObservers) {
    Observation own;
    Observation later;
    own = center->addObserver("a", [&](const Notification&) {
        calls.push_back("own");
        own.end();
        later.end();
    });
    later = center->addObserver("a", remember("later"));
    center->post("a", nullptr);
    center->post("a", nullptr);
    EXPECT_THAT(calls, ElementsAre("own"));
}

TEST_F(Notifications, mayBePostedAndObservedInsideAHandler) {
    std::vector<Observation> added;
    const auto outer = center->addObserver("a", [&](const Notification&) {
        calls.push_back("outer");
        added.push_back(center->addObserver("a", remember("added")));
        center->post("b", nullptr);
    });
    const auto inner = center->addObserver("b", remember("inner"));
    center->post("a", nullptr);
    EXPECT_THAT(calls, ElementsAre("outer", "inner"));
}

TEST_F(Notifications, outliveTheirCenter) {
    auto observation = center->addObserver("a", remember("never"));
    center.reset();
    observation.end();
    EXPECT_THAT(calls, IsEmpty());
}

TEST_F(Notifications, endingWaitsForAHandlerOnAnotherThread) {
    std::latch entered(1);
    std::latch ending(1);
    std::atomic<bool> finished = false;
    auto observation = center->addObserver("a", [&](const Notification&) {
        entered.count_down();
        ending.wait();
        finished = true;
    });
    std::thread poster([&] { center->post("a", nullptr); });
    entered.wait();
    std::thread releaser([&] { ending.count_down(); });
    observation.end();
    EXPECT_TRUE(finished);
    poster.join();
    releaser.join();
}

TEST_F(Notifications, handlersThatPostToEachOtherFromTwoThreadsDoNotBlock) {
    constexpr int kRounds = 300;
    std::atomic<int> count = 0;
    thread_local int depth = 0;
    const auto answer = [&](const char* other) {
        return [&, other](const Notification&) {
            ++count;
            if (depth++ == 0) center->post(other, nullptr);
            --depth;
        };
    };
    const auto first = center->addObserver("a", answer("b"));
    const auto second = center->addObserver("b", answer("a"));
    const auto postMany = [&](const char* name) {
        for (int round = 0; round < kRounds; ++round) center->post(name, nullptr);
    };
    std::thread one(postMany, "a");
    std::thread two(postMany, "b");
    one.join();
    two.join();
    EXPECT_EQ(count, 4 * kRounds);
}

TEST_F(Notifications, observersComeAndGoWhileOthersPost) {
    std::atomic<bool> over = false;
    std::thread poster([&] {
        while (!over) center->post("a", nullptr);
    });
    for (int round = 0; round < 500; ++round) {
        // The handler's target dies right after the observation: a late call would be seen by the sanitizers.
        auto target = std::make_unique<std::atomic<int>>(0);
        const auto observation = center->addObserver("a", [&counter = *target](const Notification&) { ++counter; });
    }
    over = true;
    poster.join();
}

}  // namespace

}  // namespace dayward

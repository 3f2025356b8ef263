#include "platform/linux/AsioQueues.h"

#include <gmock/gmock.h>

#include <atomic>
#include <filesystem>
#include <future>
#include <latch>
#include <limits>
#include <thread>

#include "support/TestEnvironment.h"

namespace dayward {

namespace {

using testing::ElementsAre;

class RealQueues : public testing::Test {
protected:
    AsioQueues queues{2};
};

/// Keeps every thread of the pool busy until it goes.
class BusyPool {
public:
    explicit BusyPool(AsioQueues& queues) : queues_(queues) {
        for (int count = 0; count < 2; ++count) {
            queues.global().async([this] {
                started_.count_down();
                over_.wait();
            });
        }
        started_.wait();
    }
    ~BusyPool() {
        over_.count_down();
        queues_.waitUntilIdle();
    }

private:
    AsioQueues& queues_;
    std::latch started_{2};
    std::latch over_{1};
};

/// A program with one thread may fork.
TEST_F(RealQueues, noThreadStartsBeforeTheFirstBlock) {
    const auto threads = [] {
        const std::filesystem::directory_iterator tasks("/proc/self/task");
        return std::distance(begin(tasks), end(tasks));
    };
    const auto before = threads();
    auto serial = queues.makeSerial("idle");
    int calls = 0;
    serial->sync([&] { ++calls; });
    queues.dropDelayed();
    EXPECT_EQ(calls, 1);
    EXPECT_EQ(threads(), before);
}

TEST_F(RealQueues, aSerialQueueRunsInOrderAndOneAtATime) {
    const auto queue = queues.makeSerial("test");
    std::vector<int> order;  // unguarded on purpose: the queue is its lock
    for (int number = 0; number < 2000; ++number) queue->async([&, number] { order.push_back(number); });
    queues.waitUntilIdle();
    ASSERT_EQ(order.size(), 2000U);
    EXPECT_TRUE(std::ranges::is_sorted(order));
}

TEST_F(RealQueues, syncFromManyThreadsKeepsTheQueueExclusive) {
    const auto queue = queues.makeSerial("test");
    int count = 0;
    std::vector<std::thread> threads;
    for (int number = 0; number < 6; ++number) {
        threads.emplace_back([&] {
            for (int round = 0; round < 300; ++round) {
                queue->async([&] { ++count; });
                queue->sync([&] { ++count; });
            }
        });
    }
    for (auto& thread : threads) thread.join();
    queue->sync([&] { EXPECT_EQ(count, 6 * 300 * 2); });
}

TEST_F(RealQueues, syncRunsAfterWhatWasQueuedEvenWhileThePoolIsBusy) {
    const auto queue = queues.makeSerial("test");
    const auto inner = queues.makeSerial("inner");
    std::vector<std::string> order;
    const BusyPool busy(queues);
    queue->async([&] { order.push_back("queued"); });
    queue->sync([&] {
        order.push_back("sync");
        inner->sync([&] { order.push_back("inner"); });
    });
    queues.global().sync([&] { order.push_back("global"); });
    EXPECT_THAT(order, ElementsAre("queued", "sync", "inner", "global"));
}

TEST_F(RealQueues, syncOnTheOwnSerialQueueStopsTheProcess) {
    GTEST_FLAG_SET(death_test_style, "threadsafe");
    EXPECT_DEATH(
        {
            AsioQueues fresh(2);
            const auto queue = fresh.makeSerial("own");
            queue->sync([&] { queue->sync([] {}); });
        },
        "sync waits for its own queue, own");
}

TEST_F(RealQueues, theMainQueueRunsInTheLoopOfItsThread) {
    std::vector<std::thread::id> seen;
    std::promise<void> answered;
    queues.global().async([&] {
        queues.main().async([&] { seen.push_back(std::this_thread::get_id()); });
        queues.main().sync([&] { seen.push_back(std::this_thread::get_id()); });
        queues.mainLoop().stop();
        answered.set_value();
    });
    queues.mainLoop().run();
    answered.get_future().wait();
    EXPECT_THAT(seen, ElementsAre(std::this_thread::get_id(), std::this_thread::get_id()));
}

TEST(AsioQueues, wakeALoopOfTheMainThreadsOwn) {
    AsioQueues queues;
    int wakes = 0, runs = 0;
    queues.main().async([&] { ++runs; });
    queues.mainLoop().setWake([&] { ++wakes; });
    EXPECT_EQ(wakes, 1) << "what waited before";
    queues.main().async([&] {
        ++runs;
        queues.main().async([&] { ++runs; });
        queues.mainLoop().runQueued();
        EXPECT_EQ(runs, 2) << "not from within a block";
    });
    EXPECT_EQ(wakes, 2);
    queues.mainLoop().runQueued();
    EXPECT_EQ(runs, 3);
    queues.mainLoop().setWake(nullptr);
    const int before = wakes;
    queues.main().async([] {});
    EXPECT_EQ(wakes, before);
    queues.mainLoop().runQueued();
}

TEST_F(RealQueues, delaysPassBeforeTheirBlocksRunAlsoWhileThePoolIsBusy) {
    const auto begun = std::chrono::steady_clock::now();
    std::promise<void> second;
    std::vector<int> order;
    const auto queue = queues.makeSerial("test");
    queue->after(TimeInterval(0.03), [&] {
        order.push_back(2);
        second.set_value();
    });
    queue->after(TimeInterval(-5), [&] { order.push_back(1); });
    second.get_future().wait();
    EXPECT_GE(std::chrono::steady_clock::now() - begun, std::chrono::milliseconds(30));
    EXPECT_THAT(order, ElementsAre(1, 2));
}

TEST_F(RealQueues, droppedDelaysNeverRunAndLetGoOfTheirBlocks) {
    auto held = std::make_shared<int>(1);
    const std::weak_ptr<int> watched = held;
    queues.makeSerial("test")->after(TimeInterval(3600), [held] {});
    queues.global().after(TimeInterval(9.2e9), [held] {});
    queues.main().after(TimeInterval(3600), [held = std::move(held)] {});
    queues.waitUntilIdle();
    EXPECT_FALSE(watched.expired());
    queues.dropDelayed();
    EXPECT_TRUE(watched.expired());
}

TEST_F(RealQueues, delaysBeyondTheRangeStopTheProcess) {
    GTEST_FLAG_SET(death_test_style, "threadsafe");
    for (const double delay :
         {1e10, -1e10, std::numeric_limits<double>::infinity(), std::numeric_limits<double>::quiet_NaN()}) {
        EXPECT_DEATH(AsioQueues(2).global().after(TimeInterval(delay), [] {}), "a delay is out of range");
    }
}

TEST_F(RealQueues, blocksRunInTheEnvironmentThatQueuedThem) {
    TestEnvironment::Options options;
    options.queues = std::make_shared<AsioQueues>(2);
    const TestEnvironment environment(options);
    Environment* const expected = environment.environment.get();
    std::atomic<int> right = 0;
    const auto note = [&] { right += Environment::hasCurrent() && &Environment::current() == expected ? 1 : 0; };
    options.queues->global().async(note);
    options.queues->makeSerial("test")->async(note);
    options.queues->main().async(note);
    std::promise<void> delayed;
    options.queues->global().after(TimeInterval(0), [&] {
        note();
        delayed.set_value();
    });
    delayed.get_future().wait();
    options.queues->waitUntilIdle();
    EXPECT_EQ(right, 4);
}

TEST_F(RealQueues, aQueueThatOutlivesItsMakerIgnoresBlocks) {
    auto mortal = std::make_unique<AsioQueues>(2);
    const auto serial = mortal->makeSerial("test");
    const auto concurrent = mortal->makeConcurrent("test");
    mortal.reset();
    auto held = std::make_shared<int>(1);
    const std::weak_ptr<int> watched = held;
    serial->after(TimeInterval(0), [held] { FAIL(); });
    concurrent->async([held = std::move(held)] { FAIL(); });
    EXPECT_TRUE(watched.expired());
}

}  // namespace

}  // namespace dayward

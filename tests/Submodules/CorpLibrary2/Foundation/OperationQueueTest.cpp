// Operations, their queues and delayed ones; on queues that run when told to, and on real ones.
#include <gmock/gmock.h>

#include <atomic>
#include <thread>

#include "Submodules/CorpLibrary2/Foundation/CCDelayedOperation.h"
#include "Submodules/CorpLibrary2/Foundation/CCUniqueOperationQueue.h"
#include "Submodules/CorpLibrary2/Foundation/XXOperationQueue.h"
#include "platform/NotificationCenter.h"
#include "platform/linux/AsioQueues.h"
#include "support/TestEnvironment.h"

namespace dayward {

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class Operations : public testing::Test {
protected:
    std::shared_ptr<Operation> noting(std::string text) {
        return BlockOperation::blockOperationWithBlock([this, text = std::move(text)] { ran.push_back(text); });
    }

    /// An operation that adds others with the same key while it runs.
    template <class Queue>
    std::shared_ptr<Operation> addingMeanwhile(Queue& queue, std::vector<std::string> texts) {
        return BlockOperation::blockOperationWithBlock([this, &queue, texts = std::move(texts)] {
            ran.push_back("first");
            for (const std::string& text : texts) queue.addOperation(noting(text), "key");
        });
    }

    TestEnvironment environment;
    std::vector<std::string> ran;
};

TEST_F(Operations, waitForThoseTheyDependOnAlsoOnAnotherQueue) {
    OperationQueue queue;
    OperationQueue other;
    const auto first = noting("first");
    const auto second = noting("second");
    const auto third = noting("third");
    third->addDependency(second);
    second->addDependency(first);
    queue.addOperation(third);
    other.addOperation(second);
    environment.queues->runAll();
    EXPECT_THAT(ran, IsEmpty());
    queue.addOperation(first);
    environment.queues->runAll();
    EXPECT_THAT(ran, ElementsAre("first", "second", "third"));
    EXPECT_EQ(queue.operationCount() + other.operationCount(), 0U);
}

TEST_F(Operations, cancelledOnesDoNotRunButCompleteAfterWhatTheyDependOn) {
    OperationQueue queue;
    const auto first = noting("first");
    const auto cancelled = noting("cancelled");
    const auto last = noting("last");
    cancelled->addDependency(first);
    last->addDependency(cancelled);
    cancelled->setCompletionBlock([&] { ran.push_back("completed"); });
    cancelled->cancel();
    queue.addOperation(last);
    queue.addOperation(cancelled);
    environment.queues->runAll();
    EXPECT_THAT(ran, IsEmpty());
    queue.addOperation(first);
    environment.queues->runAll();
    EXPECT_THAT(ran, testing::UnorderedElementsAre("first", "completed", "last"));
    EXPECT_TRUE(cancelled->isFinished());
}

TEST_F(Operations, aSerialQueueKeepsTheirOrderAndAWaiterRunsThemItself) {
    OperationQueue queue;
    queue.setMaxConcurrentOperationCount(1);
    for (const char* text : {"a", "b", "c"}) queue.addOperation(noting(text));
    EXPECT_EQ(queue.operationCount(), 3U);
    queue.waitUntilAllOperationsAreFinished();
    EXPECT_THAT(ran, ElementsAre("a", "b", "c"));
    environment.queues->runAll();
    EXPECT_EQ(ran.size(), 3U);
}

TEST_F(Operations, runAlsoWhenTheirQueueIsGone) {
    auto queue = std::make_unique<XXOperationQueue>();
    queue->addOperation(noting("a"), "key");
    queue->addOperation(noting("b"), "key");
    queue.reset();
    environment.queues->runAll();
    EXPECT_THAT(ran, ElementsAre("a", "b"));
}

TEST_F(Operations, ofOneKeyAreReplacedByTheLastInDuplicateMode) {
    CCUniqueOperationQueue queue(true);
    queue.addOperation(addingMeanwhile(queue, {"second", "third"}), "key");
    queue.addOperation(noting("other"), "other key");
    environment.queues->runAll();
    EXPECT_THAT(ran, testing::UnorderedElementsAre("first", "other", "third"));
}

TEST_F(Operations, ofOneKeyAllRunInOrderWithoutDuplicateMode) {
    CCUniqueOperationQueue queue(false);
    queue.addOperation(addingMeanwhile(queue, {"second", "third", "fourth"}), "key");
    environment.queues->runAll();
    EXPECT_THAT(ran, ElementsAre("first", "second", "third", "fourth"));
}

class SerialOperations : public Operations {
protected:
    XXOperationQueue queue;
    NotificationCenter::Observation observation = environment->notifications().addObserver(
        XXOperationQueue::kDidFinishedNotification, [this](const Notification&) { ran.push_back("dry"); }, &queue);
};

TEST_F(SerialOperations, runInOrderAndTellOnceThatTheQueueRanDry) {
    queue.addOperation(addingMeanwhile(queue, {"second", "third"}), "key");
    queue.addOperation(noting("other"), "other key");
    environment.queues->runAll();
    EXPECT_EQ(std::ranges::count(ran, "dry"), 1);
    EXPECT_EQ(ran.back(), "dry");
    std::erase_if(ran, [](const std::string& text) { return text == "other" || text == "dry"; });
    EXPECT_THAT(ran, ElementsAre("first", "second", "third"));
}

TEST_F(SerialOperations, tellNothingWhenACompletionAddsMore) {
    const auto first = noting("first");
    first->setCompletionBlock([&] { queue.addOperation(noting("more"), "key"); });
    queue.addOperation(first, "key");
    environment.queues->runAll();
    EXPECT_THAT(ran, ElementsAre("first", "more", "dry"));
}

class DelayedOperation : public Operations {
protected:
    void SetUp() override { operation->setDelayedTime(TimeInterval(5)); }

    std::unique_ptr<CCDelayedOperation> operation =
        std::make_unique<CCDelayedOperation>([this] { ran.push_back(environment.text(environment->now())); });
};

TEST_F(DelayedOperation, runsOnceAfterTheLastOfManyStarts) {
    for (int count = 0; count < 10; ++count) {
        operation->start();
        environment.queues->advance(TimeInterval(1));
    }
    EXPECT_THAT(ran, IsEmpty());
    environment.queues->advance(TimeInterval(60));
    EXPECT_THAT(ran, ElementsAre("2026-03-10T12:00:14"));
}

TEST_F(DelayedOperation, runsNothingAfterStopOrItsEnd) {
    operation->start();
    operation->stop();
    environment.queues->advance(TimeInterval(60));
    operation->start();
    operation->execute();
    operation.reset();
    environment.queues->advance(TimeInterval(60));
    EXPECT_THAT(ran, IsEmpty());
}

TEST_F(DelayedOperation, executeRunsAtOnceAndReplacesTheStart) {
    operation->start();
    operation->execute();
    environment.queues->advance(TimeInterval(60));
    EXPECT_THAT(ran, ElementsAre("2026-03-10T12:00:00"));
    operation->start();
    environment.queues->advance(TimeInterval(5));
    EXPECT_THAT(ran, ElementsAre("2026-03-10T12:00:00", "2026-03-10T12:01:05"));
}

TEST(OperationsOnRealQueues, ofOneKeyNeverOverlapAndTheLastRuns) {
    TestEnvironment::Options options;
    options.queues = std::make_shared<AsioQueues>(4);
    const TestEnvironment environment(options);
    for (const bool duplicateOperationMode : {true, false}) {
        CCUniqueOperationQueue queue(duplicateOperationMode);
        constexpr int kCount = 300;
        int total = 0;  // unguarded on purpose: the key is its lock
        int last = -1;
        for (int number = 0; number < kCount; ++number) {
            queue.addOperationWithBlock(
                [&, number] {
                    ++total;
                    last = number;
                },
                "key");
        }
        queue.waitUntilAllOperationsAreFinished();
        EXPECT_EQ(last, kCount - 1);
        EXPECT_TRUE(duplicateOperationMode ? total >= 1 : total == kCount) << total;
    }
}

TEST(OperationsOnRealQueues, tellOnTheMainThreadThatTheyRanDry) {
    TestEnvironment::Options options;
    const auto queues = std::make_shared<AsioQueues>(4);
    options.queues = queues;
    const TestEnvironment environment(options);
    XXOperationQueue queue;
    std::atomic<int> ran = 0;
    int ranWhenDry = 0;
    const auto mainThread = std::this_thread::get_id();
    const auto observation =
        environment->notifications().addObserver(XXOperationQueue::kDidFinishedNotification, [&](const Notification&) {
            EXPECT_EQ(std::this_thread::get_id(), mainThread);
            ranWhenDry = ran;
        });
    for (int number = 0; number < 100; ++number) {
        queue.addOperationWithBlock([&] { ++ran; }, std::to_string(number % 7));
    }
    queues->waitUntilIdle();
    EXPECT_EQ(ranWhenDry, 100);
}

}  // namespace

}  // namespace dayward

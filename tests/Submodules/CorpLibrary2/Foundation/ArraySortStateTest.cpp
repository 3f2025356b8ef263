#include "Submodules/CorpLibrary2/Foundation/ArraySortState.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <numeric>
#include <random>

namespace dayward {
namespace {

using Actions = std::vector<XXArrayMovedAction>;

std::optional<Actions> plainMoves(const std::vector<int>& receiver, const std::vector<int>& sorted) {
    auto working = receiver;
    Actions actions;
    for (std::size_t i = 0; i < receiver.size(); ++i) {
        const auto j = static_cast<std::size_t>(std::find(sorted.begin(), sorted.end(), receiver[i]) - sorted.begin());
        if (i >= j) continue;
        const int element = working[i];
        working.erase(working.begin() + static_cast<long>(i));
        working.insert(working.begin() + static_cast<long>(j), element);
        actions.push_back({i, j});
    }
    return working == sorted ? std::optional(actions) : std::nullopt;
}

TEST(ArraySortState, MovesBackwardAndReportsWhatTheyCannotDo) {
    struct Case {
        std::vector<int> receiver, sorted;
        std::optional<Actions> actions;
    };
    const Case cases[] = {
        {{}, {}, Actions{}},
        {{1, 2, 3}, {1, 2, 3}, Actions{}},
        {{3, 1, 2}, {1, 2, 3}, Actions{{0, 2}}},
        {{3, 2, 1}, {1, 2, 3}, std::nullopt},
        {{1, 2}, {1, 2, 3}, std::nullopt},
        {{1, 4}, {1, 2}, std::nullopt},
    };
    for (const auto& each : cases) EXPECT_EQ(getMovingActionsForSortedArray(each.receiver, each.sorted), each.actions);
}

TEST(ArraySortState, EqualButOtherElementsNeedAReload) {
    struct Deep {
        bool operator()(const std::shared_ptr<int>& a, const std::shared_ptr<int>& b) const { return *a == *b; }
        std::size_t operator()(const std::shared_ptr<int>& a) const { return static_cast<std::size_t>(*a); }
    };
    const auto one = std::make_shared<int>(1);
    const std::vector receiver{one, std::make_shared<int>(2)};
    const std::vector otherOne{std::make_shared<int>(1), receiver[1]};
    using Pointer = std::shared_ptr<int>;
    EXPECT_EQ((getMovingActionsForSortedArray<Pointer, Deep, Deep>(receiver, otherOne)), std::nullopt);
    EXPECT_EQ((getMovingActionsForSortedArray<Pointer, Deep, Deep>(receiver, receiver)), Actions{});
}

TEST(ArraySortState, GivesThePlainMovesForRandomLists) {
    std::size_t solved = 0;
    for (unsigned seed = 1; seed <= 400; ++seed) {
        SCOPED_TRACE("seed " + std::to_string(seed));
        std::mt19937 random(seed);
        std::vector<int> sorted(random() % 9);
        std::iota(sorted.begin(), sorted.end(), 0);
        if (seed % 4 == 0)
            for (auto& element : sorted) element /= 2;
        auto receiver = sorted;
        std::shuffle(receiver.begin(), receiver.end(), random);
        const auto expected = plainMoves(receiver, sorted);
        if (expected && !expected->empty()) ++solved;
        EXPECT_EQ(getMovingActionsForSortedArray(receiver, sorted), expected);
    }
    EXPECT_GT(solved, 10U);
}

}  // namespace
}  // namespace dayward

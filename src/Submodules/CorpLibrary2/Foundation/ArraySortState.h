// The moves that bring a list into an order.
#pragma once

#include <cstddef>
#include <functional>
#include <optional>
#include <unordered_map>
#include <vector>

#include "Submodules/CorpLibrary2/Foundation/IndexedList.h"
#include "Submodules/CorpLibrary2/Foundation/XXArrayMovedAction.h"

namespace dayward {

/// The moves that turn `receiver` into `sorted`, each told as it stands after the ones before it: every
/// element whose place in `sorted` lies further back than in `receiver` is moved there, in the receiver's
/// order. Nothing where these moves do not give exactly `sorted`, element for element (`Identical`, which
/// may be stricter than `Equal`), or where the lists hold different elements: reload instead. O(n log n).
template <class T, class Hash = std::hash<T>, class Equal = std::equal_to<T>, class Identical = std::equal_to<T>>
std::optional<std::vector<XXArrayMovedAction>> getMovingActionsForSortedArray(const std::vector<T>& receiver,
                                                                              const std::vector<T>& sorted) {
    if (receiver.size() != sorted.size()) return std::nullopt;
    std::unordered_map<T, std::size_t, Hash, Equal> firstIndexes;
    for (std::size_t index = 0; index < sorted.size(); ++index) firstIndexes.try_emplace(sorted[index], index);

    IndexedList<const T*> working;
    for (const auto& element : receiver) working.insert(working.size(), &element);
    std::vector<XXArrayMovedAction> actions;
    for (std::size_t index = 0; index < receiver.size(); ++index) {
        const auto target = firstIndexes.find(receiver[index]);
        if (target == firstIndexes.end()) return std::nullopt;
        if (index >= target->second) continue;
        working.insert(target->second, working.remove(working.at(index)));
        actions.push_back(XXArrayMovedAction::movedActionAtIndex(index, target->second));
    }

    std::size_t position = 0;
    bool isSorted = true;
    working.forEach([&](const auto* node) {
        isSorted = isSorted && Identical{}(*node->value, sorted[position]);
        ++position;
    });
    return isSorted ? std::optional(std::move(actions)) : std::nullopt;
}

}  // namespace dayward

// An indexed list of entries (each with a member `object`) that knows where it is out of order, so that
// the place for a new element is found without walking over all of them.
//
// The place is always the one that a walk from the front finds: before the first element that the new
// one is before. The list remembers each neighbour pair that contradicts the order; between two such
// pairs it stands in order, and there the elements that the new one is before are the end of the run. So
// one look at a run's last element tells whether the place is in the run, and a binary search finds it:
// O(r + log n) for r runs, and r is 1 while the list is in order. Where the order contradicts itself over
// three elements (a before b before c before a), the place may be another one that fits its neighbours.
// One thread at a time.
#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <set>
#include <unordered_set>

#include "Submodules/CorpLibrary2/Foundation/IndexedList.h"
#include "Submodules/CorpLibrary2/Foundation/StableMergeSort.h"

namespace dayward {

template <class Entry, class Object>
class OrderedItems {
public:
    using List = IndexedList<Entry>;
    using Node = typename List::Node;
    using Before = std::function<bool(const Object&, const Object&)>;

    [[nodiscard]] std::size_t size() const { return list_.size(); }
    [[nodiscard]] bool isEmpty() const { return list_.isEmpty(); }
    [[nodiscard]] Node* at(std::size_t index) const { return list_.at(index); }
    [[nodiscard]] const Object& objectAt(std::size_t index) const { return list_.at(index)->value.object; }
    template <class Visit>
    void forEach(Visit visit) const {
        list_.forEach(visit);
    }

    /// Replaces everything by entries that stand in order under the stamp: no element has to stand before
    /// the one before it.
    void assignInOrder(std::vector<Entry> entries, std::int64_t stamp) {
        list_.assign(std::move(entries));
        unchecked_.clear();
        outOfOrder_.clear();
        stamp_ = stamp;
    }
    Node* insert(std::size_t index, Entry entry) { return insert(index, std::make_unique<Node>(std::move(entry))); }
    Node* insert(std::size_t index, std::unique_ptr<Node> owned) {
        Node* node = list_.insert(index, std::move(owned));
        objectChanged(node);
        return node;
    }
    std::unique_ptr<Node> remove(Node* node) {
        if (Node* next = List::next(node)) unchecked_.insert(next);
        unchecked_.erase(node);
        outOfOrder_.erase(node);
        return list_.remove(node);
    }
    /// To be told after a node's object was replaced.
    void objectChanged(Node* node) {
        unchecked_.insert(node);
        if (Node* next = List::next(node)) unchecked_.insert(next);
    }

    /// The position of the first element that `object` is before, or size(). `stamp` names the state of
    /// whatever `before` depends on besides the objects: pairs that were checked under another stamp are
    /// checked again.
    [[nodiscard]] std::size_t insertionIndex(const Object& object, const Before& before, std::int64_t stamp) const {
        checkPairs(before, stamp);
        std::size_t start = 0;
        for (const Node* nextRun : outOfOrder_) {
            const std::size_t end = List::indexOf(nextRun);
            if (before(object, objectAt(end - 1))) return searchRun(start, end, object, before);
            start = end;
        }
        return searchRun(start, size(), object, before);
    }

private:
    void checkPairs(const Before& before, std::int64_t stamp) const {
        if (stamp_ != stamp) {
            stamp_ = stamp;
            unchecked_.clear();
            outOfOrder_.clear();
            list_.forEach([&](Node* node) { checkPair(node, before); });
            return;
        }
        for (Node* node : unchecked_) checkPair(node, before);
        unchecked_.clear();
    }

    /// Of the node and the one before it.
    void checkPair(Node* node, const Before& before) const {
        const Node* previous = List::previous(node);
        if (previous != nullptr && isStrictlyBefore(node->value.object, previous->value.object, before))
            outOfOrder_.insert(node);
        else
            outOfOrder_.erase(node);
    }

    std::size_t searchRun(std::size_t first, std::size_t end, const Object& object, const Before& before) const {
        while (first < end) {
            const std::size_t middle = first + (end - first) / 2;
            if (before(object, objectAt(middle)))
                end = middle;
            else
                first = middle + 1;
        }
        return first;
    }

    struct EarlierInList {
        bool operator()(const Node* left, const Node* right) const {
            return List::indexOf(left) < List::indexOf(right);
        }
    };

    List list_;
    mutable std::optional<std::int64_t> stamp_;
    mutable std::unordered_set<Node*> unchecked_;  ///< their pairs with the node before are to be checked
    /// These have to stand before the node before them: each begins a run.
    mutable std::set<Node*, EarlierInList> outOfOrder_;
};

}  // namespace dayward

// An indexed list of entries (each with a member `object`) that knows where it is out of order, so that
// the place for a new element is found in O(log n) as long as the list stands in order.
//
// The place is always the one that a walk from the front finds: before the first element that the new
// one is before. In a list in order those elements are the list's end, and a binary search finds where
// it begins. The list remembers each neighbour pair that contradicts the order; while there is one, it
// really walks. One thread at a time.
#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
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
        return outOfOrder_.empty() ? searchFrom(object, before) : walkFrom(object, before);
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

    std::size_t searchFrom(const Object& object, const Before& before) const {
        std::size_t first = 0;
        std::size_t last = size();
        while (first < last) {
            const std::size_t middle = first + (last - first) / 2;
            if (before(object, objectAt(middle)))
                last = middle;
            else
                first = middle + 1;
        }
        return first;
    }

    std::size_t walkFrom(const Object& object, const Before& before) const {
        std::size_t index = 0;
        for (Node* node = list_.first(); node != nullptr; node = List::next(node), ++index)
            if (before(object, node->value.object)) return index;
        return index;
    }

    List list_;
    mutable std::optional<std::int64_t> stamp_;
    mutable std::unordered_set<Node*> unchecked_;   ///< their pairs with the node before are to be checked
    mutable std::unordered_set<Node*> outOfOrder_;  ///< these have to stand before the node before them
};

}  // namespace dayward

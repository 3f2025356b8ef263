// A sequence that inserts, removes and finds by position, and tells the position of an element, each
// in O(log n): a treap over positions (randomised search tree, Seidel and Aragon 1996).
//
// An element stays in its Node from insertion to removal, so a Node* is a handle that survives all
// other changes. One thread at a time.
#pragma once

#include <cstdint>
#include <limits>
#include <memory>
#include <utility>
#include <vector>

namespace dayward {

template <class T>
class IndexedList {
public:
    struct Node {
        explicit Node(T nodeValue) : value(std::move(nodeValue)) {}
        T value;

    private:
        friend class IndexedList;
        Node* left = nullptr;
        Node* right = nullptr;
        Node* parent = nullptr;
        std::size_t count = 1;  ///< of this subtree
        std::uint32_t priority = 0;
    };

    IndexedList() = default;
    ~IndexedList() { clear(); }
    IndexedList(const IndexedList&) = delete;
    IndexedList& operator=(const IndexedList&) = delete;
    IndexedList(IndexedList&& other) noexcept : root_(std::exchange(other.root_, nullptr)), random_(other.random_) {}
    IndexedList& operator=(IndexedList&& other) noexcept {
        std::swap(root_, other.root_);
        return *this;
    }

    [[nodiscard]] std::size_t size() const { return countOf(root_); }
    [[nodiscard]] bool isEmpty() const { return root_ == nullptr; }

    /// The element at a position that is below size().
    [[nodiscard]] Node* at(std::size_t index) const {
        Node* node = root_;
        while (index != countOf(node->left)) {
            if (index < countOf(node->left)) {
                node = node->left;
            } else {
                index -= countOf(node->left) + 1;
                node = node->right;
            }
        }
        return node;
    }

    /// The position of an element in the list that holds it.
    [[nodiscard]] static std::size_t indexOf(const Node* node) {
        std::size_t index = countOf(node->left);
        for (; node->parent != nullptr; node = node->parent)
            if (node == node->parent->right) index += countOf(node->parent->left) + 1;
        return index;
    }

    /// Before the element at that position; at most size().
    Node* insert(std::size_t index, T value) { return insert(index, std::make_unique<Node>(std::move(value))); }
    Node* insert(std::size_t index, std::unique_ptr<Node> owned) {
        Node* node = owned.release();
        node->priority = nextPriority();
        auto [before, after] = split(root_, index);
        setRoot(merge(merge(before, node), after));
        return node;
    }
    /// Replaces everything, in O(n).
    void assign(std::vector<T> values) {
        clear();
        setRoot(balanced(values.data(), values.size()));
    }
    /// Takes the element out and hands it over.
    std::unique_ptr<Node> remove(Node* node) {
        Node* children = merge(node->left, node->right);
        Node* parent = node->parent;
        if (parent == nullptr) {
            setRoot(children);
        } else {
            (parent->left == node ? parent->left : parent->right) = children;
            if (children != nullptr) children->parent = parent;
            for (; parent != nullptr; parent = parent->parent) --parent->count;
        }
        node->left = node->right = node->parent = nullptr;
        node->count = 1;
        return std::unique_ptr<Node>(node);
    }
    void clear() { destroy(std::exchange(root_, nullptr)); }

    /// Calls `visit(element)` from the first to the last.
    template <class Visit>
    void forEach(Visit visit) const {
        for (Node* node = first(); node != nullptr; node = next(node)) visit(node);
    }
    [[nodiscard]] Node* first() const { return root_ == nullptr ? nullptr : leftmost(root_); }
    /// The following element, or null.
    [[nodiscard]] static Node* next(Node* node) {
        if (node->right != nullptr) return leftmost(node->right);
        while (node->parent != nullptr && node == node->parent->right) node = node->parent;
        return node->parent;
    }
    /// The preceding element, or null.
    [[nodiscard]] static Node* previous(Node* node) {
        if (node->left != nullptr) {
            node = node->left;
            while (node->right != nullptr) node = node->right;
            return node;
        }
        while (node->parent != nullptr && node == node->parent->left) node = node->parent;
        return node->parent;
    }

private:
    static std::size_t countOf(const Node* node) { return node == nullptr ? 0 : node->count; }

    static Node* leftmost(Node* node) {
        while (node->left != nullptr) node = node->left;
        return node;
    }

    static void update(Node* node) {
        node->count = 1 + countOf(node->left) + countOf(node->right);
        if (node->left != nullptr) node->left->parent = node;
        if (node->right != nullptr) node->right->parent = node;
    }

    /// The first `count` elements, and the rest.
    static std::pair<Node*, Node*> split(Node* node, std::size_t count) {
        if (node == nullptr) return {nullptr, nullptr};
        node->parent = nullptr;
        if (count <= countOf(node->left)) {
            auto [before, after] = split(node->left, count);
            node->left = after;
            update(node);
            if (before != nullptr) before->parent = nullptr;
            return {before, node};
        }
        auto [before, after] = split(node->right, count - countOf(node->left) - 1);
        node->right = before;
        update(node);
        if (after != nullptr) after->parent = nullptr;
        return {node, after};
    }

    static Node* merge(Node* before, Node* after) {
        if (before == nullptr) return after;
        if (after == nullptr) return before;
        if (before->priority > after->priority) {
            before->right = merge(before->right, after);
            update(before);
            return before;
        }
        after->left = merge(before, after->left);
        update(after);
        return after;
    }

    /// A node gets about the priority that the greatest of so many random ones has, so that later
    /// insertions find the tree as random ones would have made it.
    static Node* balanced(T* values, std::size_t count) {
        if (count == 0) return nullptr;
        const std::size_t middle = count / 2;
        Node* left = balanced(values, middle);
        Node* node = new Node(std::move(values[middle]));
        node->left = left;
        node->right = balanced(values + middle + 1, count - middle - 1);
        node->priority = kGreatestPriority - static_cast<std::uint32_t>(kGreatestPriority / (count + 1));
        update(node);
        return node;
    }

    static void destroy(Node* node) {
        if (node == nullptr) return;
        destroy(node->left);
        destroy(node->right);
        delete node;
    }

    void setRoot(Node* node) {
        root_ = node;
        if (node != nullptr) node->parent = nullptr;
    }

    /// xorshift: the balance needs no good randomness, and the same calls give the same tree.
    std::uint32_t nextPriority() {
        random_ ^= random_ << 13;
        random_ ^= random_ >> 17;
        random_ ^= random_ << 5;
        return random_;
    }

    static constexpr std::uint32_t kGreatestPriority = std::numeric_limits<std::uint32_t>::max();

    Node* root_ = nullptr;
    std::uint32_t random_ = 2463534242U;
};

}  // namespace dayward

// A keyed archive's parts, found in place: its objects by number, their classes, their keys. Private
// to the readers of keyed archives. Every visit is paid for from a budget that grows with the file, so
// that objects which hold each other many times over cannot cost more than a multiple of its size.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/BinaryPropertyList.h"
#include "platform/PropertyList.h"

namespace dayward {

class KeyedArchiveFile {
public:
    using Item = BinaryPropertyList::Item;
    using Kind = BinaryPropertyList::Kind;

    static constexpr int kDeepestNesting = 256;

    /// `data` outlives this. Fails with the domain "keyed archive".
    static Result<KeyedArchiveFile> open(const Data& data);

    [[nodiscard]] const BinaryPropertyList& list() const { return list_; }
    [[nodiscard]] const Item& top() const { return top_; }
    [[nodiscard]] std::uint64_t objectCount() const { return objects_.count; }
    /// Of the kind `broken` where there is no such object.
    [[nodiscard]] Item object(std::uint64_t number) const {
        return number < objects_.count ? list_.element(objects_, number) : Item{};
    }
    /// The object that a reference leads to, or the item itself; "$null" is of the kind null.
    [[nodiscard]] Item resolved(const Item& item) const;
    [[nodiscard]] static std::uint64_t uid(const Item& item) { return static_cast<std::uint64_t>(item.integer); }

    /// The value under a key of a dictionary; looks from pair `*hint` on, and moves it behind the found pair.
    [[nodiscard]] std::optional<Item> find(const Item& dictionary, std::string_view key, std::uint64_t* hint = nullptr);
    /// The number of the class record of an object; nothing where it has none.
    [[nodiscard]] std::optional<std::uint64_t> classNumber(const Item& object);
    /// A text.
    [[nodiscard]] std::optional<Item> className(std::uint64_t classNumber);
    /// The whole item as a value of its own, references as they are. Nothing where it is damaged, too
    /// deep or too large.
    [[nodiscard]] std::optional<PropertyList> extract(const Item& item, int depth = 0);

    /// False from the moment on when more was asked for than the file's size allows.
    bool spend(std::uint64_t bytes) {
        if (bytes > budget_)
            budget_ = 0, exhausted_ = true;
        else
            budget_ -= bytes;
        return !exhausted_;
    }
    [[nodiscard]] bool isExhausted() const { return exhausted_; }

private:
    Data converted_;  ///< the binary form of an XML archive
    BinaryPropertyList list_;
    Item objects_, top_;
    std::uint64_t budget_ = 0;
    bool exhausted_ = false;
};

inline std::optional<KeyedArchiveFile::Item> KeyedArchiveFile::find(const Item& dictionary, std::string_view key,
                                                                    std::uint64_t* hint) {
    const std::uint64_t count = dictionary.count;
    std::uint64_t index = hint && *hint < count ? *hint : 0;
    const bool isThere = count > 0 && list_.isSurelyKey(dictionary, index, key);
    if (!isThere) index = list_.pairWithKey(dictionary, key, index);
    if (!spend(isThere ? 1 : count) || index == count) return std::nullopt;
    if (hint) *hint = index + 1;
    return list_.element(dictionary, index);
}

/// Failure of reading an archive.
inline std::unexpected<Error> archiveFailure(std::string reason) {
    return failure("keyed archive", 0, {{"reason", std::move(reason)}});
}

}  // namespace dayward

// Reader of binary property lists ("bplist00") in memory that outlives it. Private to the platform's
// archives.
//
// Nothing is unfolded: objects refer to each other by number, and a tree of them would be at the mercy of a
// file whose arrays hold each other. Any object may be asked for at any time, so that the caller can count
// what it visits; a damaged one is of the kind `broken`.
#pragma once

#include <cstdint>
#include <cstring>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "platform/BigEndian.h"
#include "platform/Data.h"
#include "platform/Result.h"

namespace dayward {

class BinaryPropertyList {
public:
    enum class Kind : std::uint8_t {
        broken,
        null,
        boolean,
        integer,
        unsignedInteger,
        real,
        date,
        data,
        text,
        wideText,
        uid,
        array,
        dictionary
    };

    /// Small enough to be handed on in registers.
    struct Item {
        Item(Kind itemKind = Kind::broken, std::int64_t number = 0) : kind(itemKind), integer(number) {}  // NOLINT

        Kind kind;
        std::uint64_t count : 56 = 0;  ///< bytes, UTF-16 units, elements or pairs
        union {
            std::int64_t integer;         ///< also boolean; as unsigned for uid and unsignedInteger
            double real;                  ///< also date
            const std::uint8_t* payload;  ///< of what has a count; null where it has none
        };
    };

    /// Checks the trailer and where objects begin, no more; up to 4 GB. Domain "keyed archive" on failure.
    static Result<BinaryPropertyList> open(std::span<const std::uint8_t> bytes);

    [[nodiscard]] Item root() const { return item(topObject_); }
    [[nodiscard]] Item item(std::uint64_t object) const;
    /// The element of an array, or the value of the pair of a dictionary; index < count.
    [[nodiscard]] Item element(const Item& container, std::uint64_t index) const;
    /// The key of the pair of a dictionary; index < count.
    [[nodiscard]] Item key(const Item& dictionary, std::uint64_t index) const;
    /// A bit for each kind of key that the dictionary has, so that most keys that it lacks are told without
    /// looking at its pairs: `keyKinds(dictionary) & kindOfKey(key)` is 0.
    [[nodiscard]] std::uint64_t keyKinds(const Item& dictionary) const;
    [[nodiscard]] static std::uint64_t kindOfKey(std::string_view key) {
        const bool isShort = !key.empty() && key.size() < kCountApart;
        return isShort ? kindOfShortKey(key.size(), static_cast<std::uint8_t>(key.front())) : kOtherKey;
    }
    /// Whether the pair has that key; index < count. May miss a key of 15 bytes and more, or a wide one.
    [[nodiscard]] bool isSurelyKey(const Item& dictionary, std::uint64_t index, std::string_view key) const {
        const std::uint8_t* marker = start(reference(dictionary, index));
        return marker != nullptr && key.size() < kCountApart && isShortText(marker, key);
    }
    /// The pair with that key, looked for from pair `first` on and then before it; the count of pairs where
    /// there is none.
    [[nodiscard]] std::uint64_t pairWithKey(const Item& dictionary, std::string_view key, std::uint64_t first) const;
    [[nodiscard]] std::uint64_t size() const { return bytes_.size(); }

    /// Valid UTF-8 of a text or wideText.
    [[nodiscard]] static std::string text(const Item& item);
    /// The same of a data that holds UTF-8; what is none becomes replacement characters.
    [[nodiscard]] static std::string textOfUTF8(const Item& data);
    /// The bytes of a text, which are ASCII where its writer followed the format, or of a data.
    [[nodiscard]] static std::string_view bytesOf(const Item& item) {
        return {reinterpret_cast<const char*>(item.payload), item.count};
    }
    [[nodiscard]] static bool isText(const Item& item) {
        return item.kind == Kind::text || item.kind == Kind::wideText;
    }
    /// Compares with an ASCII text without copying the item.
    [[nodiscard]] static bool equals(const Item& item, std::string_view ascii) {
        return item.kind == Kind::text && bytesOf(item) == ascii;
    }
    /// Of an unsignedInteger, which no value of ours holds whole.
    [[nodiscard]] static double nearestReal(const Item& item) {
        return static_cast<double>(static_cast<std::uint64_t>(item.integer));
    }
    [[nodiscard]] static Data data(const Item& item) { return Data(item.payload, item.payload + item.count); }

private:
    static constexpr std::uint64_t kHeaderSize = 8;
    static constexpr std::uint64_t kOtherKey = 1;  ///< an empty or long one
    static constexpr std::uint64_t kAnyKey = ~std::uint64_t{0};
    static constexpr std::size_t kCountApart = 0x0F;  ///< such a count stands behind the marker

    [[nodiscard]] std::uint64_t reference(const Item& container, std::uint64_t position) const {
        if (referenceSize_ == 1) return container.payload[position];
        return bigEndian(container.payload + position * referenceSize_, referenceSize_);
    }
    [[nodiscard]] static std::uint64_t kindOfShortKey(std::size_t length, std::uint8_t first) {
        return std::uint64_t{1} << ((first + 8 * length) & 63);
    }
    [[nodiscard]] bool isShortText(const std::uint8_t* marker, std::string_view text) const {
        return *marker == (0x50 | text.size()) && bytesFrom(marker) > text.size() &&
               std::memcmp(marker + 1, text.data(), text.size()) == 0;
    }
    template <class IsKey>
    [[nodiscard]] std::uint64_t pairWhere(const Item& dictionary, std::uint64_t first, IsKey isKey) const;
    [[nodiscard]] static bool isText(const Item& item, std::string_view text);
    /// The marker of the object; null where there is none.
    [[nodiscard]] const std::uint8_t* start(std::uint64_t object) const {
        return object < starts_.size() && starts_[object] != 0 ? bytes_.data() + starts_[object] : nullptr;
    }
    template <unsigned offsetSize>
    void readTable(std::uint64_t objectCount);
    [[nodiscard]] std::uint64_t bytesFrom(const std::uint8_t* place) const {
        return static_cast<std::uint64_t>(table_ - place);
    }
    [[nodiscard]] Item sized(Item item, const std::uint8_t* marker, std::uint64_t unit) const;
    [[nodiscard]] Item number(const std::uint8_t* marker) const;
    [[nodiscard]] Item real(const std::uint8_t* marker, Kind kind) const;

    std::span<const std::uint8_t> bytes_;  ///< without the trailer
    const std::uint8_t* table_ = nullptr;  ///< the objects lie before it
    std::vector<std::uint32_t> starts_;    ///< of each object, 0 where that is no place of one
    std::uint64_t topObject_ = 0;
    unsigned referenceSize_ = 0;
};

inline BinaryPropertyList::Item BinaryPropertyList::element(const Item& container, std::uint64_t index) const {
    const std::uint64_t keys = container.kind == Kind::dictionary ? container.count : 0;
    return item(reference(container, keys + index));
}

inline BinaryPropertyList::Item BinaryPropertyList::key(const Item& dictionary, std::uint64_t index) const {
    return item(reference(dictionary, index));
}

}  // namespace dayward

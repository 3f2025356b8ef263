// Property lists as values, and their binary form ("bplist00"). Private to the platform's archives.
//
// The binary form is read in place (BinaryPropertyList): its objects refer to each other by number,
// and a reader that unfolds them into a tree is at the mercy of a file whose arrays hold each other.
// Here nothing is unfolded, so that the caller can count what it visits.
#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

#include "platform/Data.h"
#include "platform/Date.h"
#include "platform/Result.h"

namespace dayward {

/// Reference to an object of a keyed archive.
struct ArchiveUID {
    std::uint64_t number = 0;
    bool operator==(const ArchiveUID&) const = default;
};

/// An owned property list.
struct PropertyList {
    using List = std::vector<PropertyList>;
    struct Field;
    using Fields = std::vector<Field>;  ///< in stored order

    std::variant<std::monostate, bool, std::int64_t, std::uint64_t, double, Date, std::string, Data, ArchiveUID, List,
                 Fields>
        value;
};

struct PropertyList::Field {
    std::string key;
    PropertyList value;
};

/// The binary form; equal strings, numbers and references are stored once. Text that is no UTF-8 gets
/// replacement characters.
Data binaryPropertyList(const PropertyList& root);

/// The binary form of an XML property list. Domain "keyed archive" on failure.
Result<Data> binaryFromXMLPropertyList(const Data& xml);

/// A binary property list in memory that outlives this. Any object may be asked for at any time; a
/// damaged one is of the kind `broken`.
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

    struct Item {
        Item(Kind itemKind = Kind::broken, std::int64_t number = 0) : kind(itemKind), integer(number) {}  // NOLINT

        Kind kind;
        std::uint64_t count = 0;  ///< bytes, UTF-16 units, elements or pairs
        const std::uint8_t* payload = nullptr;
        union {
            std::int64_t integer;  ///< also boolean; as unsigned for uid and unsignedInteger
            double real;           ///< also date
        };
    };

    /// Checks the trailer only. Domain "keyed archive" on failure.
    static Result<BinaryPropertyList> open(std::span<const std::uint8_t> bytes);

    [[nodiscard]] Item root() const { return item(topObject_); }
    [[nodiscard]] Item item(std::uint64_t object) const;
    /// The element of an array, or the value of the pair of a dictionary; index < count.
    [[nodiscard]] Item element(const Item& container, std::uint64_t index) const;
    /// The key of the pair of a dictionary; index < count.
    [[nodiscard]] Item key(const Item& dictionary, std::uint64_t index) const;
    [[nodiscard]] std::uint64_t size() const { return bytes_.size(); }

    /// Valid UTF-8 of a text or wideText.
    [[nodiscard]] static std::string text(const Item& item);
    [[nodiscard]] static bool isText(const Item& item) {
        return item.kind == Kind::text || item.kind == Kind::wideText;
    }
    /// Compares an ASCII text without copying it.
    [[nodiscard]] static bool equals(const Item& item, std::string_view ascii);
    [[nodiscard]] static Data data(const Item& item) { return Data(item.payload, item.payload + item.count); }

private:
    [[nodiscard]] std::uint64_t reference(const Item& container, std::uint64_t position) const;
    [[nodiscard]] Item sized(Item item, std::uint64_t offset, unsigned lowBits, std::uint64_t unit) const;
    [[nodiscard]] Item number(std::uint64_t offset, unsigned lowBits) const;
    [[nodiscard]] Item real(std::uint64_t offset, unsigned lowBits, Kind kind) const;

    std::span<const std::uint8_t> bytes_;
    std::uint64_t objectCount_ = 0, topObject_ = 0, tableOffset_ = 0;
    unsigned offsetSize_ = 0, referenceSize_ = 0;
};

}  // namespace dayward

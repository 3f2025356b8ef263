// Property lists as values. Private to the platform's archives.
#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <variant>
#include <vector>

#include "platform/Data.h"
#include "platform/Date.h"
#include "platform/Result.h"

namespace dayward {

class BinaryPropertyListWriter;

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

/// The binary form; equal strings, numbers and references are stored once.
Data binaryPropertyList(const PropertyList& root);
/// Adds the list to a binary one; `numberOf` tells what a reference to an object of a keyed archive becomes.
std::uint32_t addPropertyList(BinaryPropertyListWriter& writer, const PropertyList& list,
                              const std::function<std::uint64_t(ArchiveUID)>& numberOf);

/// The binary form of an XML property list. Domain "keyed archive" on failure.
Result<Data> binaryFromXMLPropertyList(const Data& xml);

}  // namespace dayward

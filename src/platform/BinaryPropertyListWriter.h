// Writer of binary property lists ("bplist00"). Private to the platform's archives.
//
// Objects are added from the leaves up and refer to each other by number. Leaves go into the bytes at once,
// equal ones but for data a single time, as long as the whole unfolds to a bounded multiple of its size;
// containers follow them at the end, when the width of a reference is known. One thread.
#pragma once

#include <cstdint>
#include <span>
#include <string_view>
#include <vector>

#include "platform/Data.h"
#include "platform/Date.h"
#include "platform/HashIndex.h"

namespace dayward {

class BinaryPropertyListWriter {
public:
    using Reference = std::uint32_t;  ///< the number of an object; consecutive from 0

    BinaryPropertyListWriter();

    Reference null();
    Reference boolean(bool value);
    Reference integer(std::int64_t value);
    Reference unsignedInteger(std::uint64_t value);
    Reference real(double value);
    Reference date(Date value);
    /// Bytes that are no UTF-8 become replacement characters.
    Reference text(std::string_view value);
    Reference data(std::span<const std::uint8_t> value);
    Reference uid(std::uint64_t number);
    Reference array(std::span<const Reference> elements);
    /// Key, value, key, value…; keys are texts.
    Reference dictionary(std::span<const Reference> pairs);

    /// The whole list; the writer is of no use afterwards.
    Data finish(Reference top);

private:
    struct Container {
        Reference number;
        std::uint8_t kind;
        std::size_t firstReference, referenceCount;
    };

    std::uint8_t* room(std::size_t count);
    Reference shared(const std::uint8_t* end);
    [[nodiscard]] bool mayShare(std::size_t count);
    Reference container(std::uint8_t kind, std::size_t referenceCount);
    void writeContainer(const Container& container, unsigned referenceSize);

    Data bytes_;  ///< longer than what is used of it
    std::size_t used_ = 0;
    std::uint64_t sharedBytes_ = 0;       ///< that long leaves would take, were they repeated
    std::vector<std::uint64_t> offsets_;  ///< of each object
    HashIndex leaves_;
    std::vector<Container> containers_;
    std::vector<Reference> references_;
};

}  // namespace dayward

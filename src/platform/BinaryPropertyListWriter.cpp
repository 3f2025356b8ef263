#include "platform/BinaryPropertyListWriter.h"

#include <unicode/utf16.h>

#include <algorithm>
#include <bit>

#include "platform/BigEndian.h"

namespace dayward {

namespace {

using Writer = BinaryPropertyListWriter;

// Enough for an event, so that nothing grows on the way.
constexpr std::size_t kUsualSize = 4096;
constexpr std::size_t kUsualLeaves = 256;
constexpr std::size_t kUsualContainers = 32;

// A reader answers for what a list unfolds to (see KeyedArchiveFile): beyond this, long leaves are repeated.
constexpr std::size_t kAlwaysShared = 16;
constexpr std::uint64_t kSharedInAnyList = 1 << 20;
constexpr std::uint64_t kSharedPerByte = 32;

constexpr std::size_t kLongestMarker = 10;
constexpr std::uint8_t kArray = 0xA0;
constexpr std::uint8_t kDictionary = 0xD0;

/// The exponent of the fewest bytes (1, 2, 4, 8) that hold the value.
unsigned widthExponent(std::uint64_t value) {
    return value <= 0xFF ? 0 : value <= 0xFFFF ? 1 : value <= 0xFFFFFFFF ? 2 : 3;
}

unsigned bytesNeeded(std::uint64_t value) { return 1U << widthExponent(value); }

std::uint8_t* putInteger(std::uint8_t* at, std::uint64_t value) {
    const unsigned exponent = widthExponent(value);
    *at = static_cast<std::uint8_t>(0x10 | exponent);
    return putBigEndian(at + 1, value, 1U << exponent);
}

std::uint8_t* putMarker(std::uint8_t* at, std::uint8_t kind, std::uint64_t count) {
    *at = static_cast<std::uint8_t>(kind | std::min<std::uint64_t>(count, 0x0F));
    return count < 0x0F ? at + 1 : putInteger(at + 1, count);
}

std::uint8_t* putReal(std::uint8_t* at, std::uint8_t marker, double value) {
    *at = marker;
    return putBigEndian(at + 1, std::bit_cast<std::uint64_t>(value), 8);
}

std::uint64_t countOfUTF16(std::string_view text) {
    std::uint64_t count = 0;
    forEachCharacterOfUTF8(text,
                           [&](UChar32 character) { count += static_cast<std::uint64_t>(U16_LENGTH(character)); });
    return count;
}

std::uint8_t* putUTF16(std::uint8_t* at, std::string_view text) {
    forEachCharacterOfUTF8(text, [&](UChar32 character) {
        if (character > 0xFFFF) at = putBigEndian(at, U16_LEAD(character), 2);
        at = putBigEndian(at, character > 0xFFFF ? U16_TRAIL(character) : static_cast<char16_t>(character), 2);
    });
    return at;
}

}  // namespace

Writer::BinaryPropertyListWriter() : leaves_(2 * kUsualLeaves) {
    bytes_.resize(kUsualSize);
    offsets_.reserve(kUsualLeaves);
    containers_.reserve(kUsualContainers);
    references_.reserve(2 * kUsualLeaves);
    const std::string_view header = "bplist00";
    std::ranges::copy(header, bytes_.begin());
    used_ = header.size();
}

/// The place for the next `count` bytes, with a few more behind them that may be read.
std::uint8_t* Writer::room(std::size_t count) {
    const std::size_t needed = used_ + count + 8;
    if (needed > bytes_.size()) bytes_.resize(std::max(needed, 2 * bytes_.size()));
    return bytes_.data() + used_;
}

/// The leaf that was written into the free room up to `end`, or the equal one before it, which then mostly
/// stays alone. A leaf's first bytes say where it ends, so that none begins as another one does.
Writer::Reference Writer::shared(const std::uint8_t* end) {
    const std::uint8_t* leaf = bytes_.data() + used_;
    const auto count = static_cast<std::size_t>(end - leaf);
    const auto next = static_cast<Reference>(offsets_.size());
    const auto isSame = [&](Reference known) { return std::memcmp(bytes_.data() + offsets_[known], leaf, count) == 0; };
    const Reference number = leaves_.findOrAdd(HashIndex::hash(leaf, count), next, isSame);
    if (number != next && mayShare(count)) return number;
    offsets_.push_back(used_);
    used_ += count;
    return next;
}

bool Writer::mayShare(std::size_t count) {
    if (count <= kAlwaysShared) return true;
    sharedBytes_ += count;
    return sharedBytes_ <= kSharedInAnyList + kSharedPerByte * used_;
}

Writer::Reference Writer::null() {
    std::uint8_t* at = room(1);
    *at = 0x00;
    return shared(at + 1);
}

Writer::Reference Writer::boolean(bool value) {
    std::uint8_t* at = room(1);
    *at = value ? 0x09 : 0x08;
    return shared(at + 1);
}

Writer::Reference Writer::integer(std::int64_t value) {
    return shared(putInteger(room(9), static_cast<std::uint64_t>(value)));
}

Writer::Reference Writer::unsignedInteger(std::uint64_t value) {
    std::uint8_t* at = room(17);
    *at = 0x14;
    return shared(putBigEndian(putBigEndian(at + 1, 0, 8), value, 8));
}

Writer::Reference Writer::real(double value) { return shared(putReal(room(9), 0x23, value)); }
Writer::Reference Writer::date(Date value) { return shared(putReal(room(9), 0x33, value.secondsSinceReference())); }

Writer::Reference Writer::text(std::string_view value) {
    if (isASCII(value.data(), value.size())) {
        std::uint8_t* at = putMarker(room(kLongestMarker + value.size()), 0x50, value.size());
        return shared(std::ranges::copy(value, at).out);
    }
    const std::uint64_t units = countOfUTF16(value);
    return shared(putUTF16(putMarker(room(kLongestMarker + 2 * units), 0x60, units), value));
}

Writer::Reference Writer::data(std::span<const std::uint8_t> value) {
    std::uint8_t* at = putMarker(room(kLongestMarker + value.size()), 0x40, value.size());
    return shared(std::ranges::copy(value, at).out);
}

Writer::Reference Writer::uid(std::uint64_t number) {
    std::uint8_t* at = room(9);
    const unsigned length = bytesNeeded(number);
    *at = static_cast<std::uint8_t>(0x80 | (length - 1));
    return shared(putBigEndian(at + 1, number, length));
}

Writer::Reference Writer::array(std::span<const Reference> elements) {
    references_.insert(references_.end(), elements.begin(), elements.end());
    return container(kArray, elements.size());
}

Writer::Reference Writer::dictionary(std::span<const Reference> pairs) {
    for (std::size_t i = 0; i < pairs.size(); i += 2) references_.push_back(pairs[i]);
    for (std::size_t i = 1; i < pairs.size(); i += 2) references_.push_back(pairs[i]);
    return container(kDictionary, pairs.size());
}

Writer::Reference Writer::container(std::uint8_t kind, std::size_t referenceCount) {
    const auto number = static_cast<Reference>(offsets_.size());
    offsets_.push_back(0);
    containers_.push_back({number, kind, references_.size() - referenceCount, referenceCount});
    return number;
}

void Writer::writeContainer(const Container& container, unsigned referenceSize) {
    offsets_[container.number] = used_;
    const std::size_t count = container.referenceCount;
    std::uint8_t* at = room(kLongestMarker + count * referenceSize);
    at = putMarker(at, container.kind, container.kind == kDictionary ? count / 2 : count);
    for (const Reference reference : std::span(references_).subspan(container.firstReference, count))
        at = putBigEndian(at, reference, referenceSize);
    used_ = static_cast<std::size_t>(at - bytes_.data());
}

Data Writer::finish(Reference top) {
    const unsigned referenceSize = bytesNeeded(offsets_.size());
    for (const Container& each : containers_) writeContainer(each, referenceSize);
    const std::uint64_t table = used_;
    const unsigned offsetSize = bytesNeeded(table);
    std::uint8_t* at = room(offsets_.size() * offsetSize + 32);
    for (const std::uint64_t offset : offsets_) at = putBigEndian(at, offset, offsetSize);
    at = std::fill_n(at, 6, std::uint8_t{0});
    at = putBigEndian(at, offsetSize, 1);
    at = putBigEndian(at, referenceSize, 1);
    for (const std::uint64_t number : {std::uint64_t{offsets_.size()}, std::uint64_t{top}, table})
        at = putBigEndian(at, number, 8);
    bytes_.resize(static_cast<std::size_t>(at - bytes_.data()));
    return std::move(bytes_);
}

}  // namespace dayward

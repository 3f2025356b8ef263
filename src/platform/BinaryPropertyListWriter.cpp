#include <unicode/utf16.h>
#include <unicode/utf8.h>

#include <algorithm>
#include <bit>
#include <unordered_map>

#include "platform/PropertyList.h"

namespace dayward {

namespace {

void appendBigEndian(Data& bytes, std::uint64_t value, unsigned count) {
    for (unsigned i = count; i-- > 0;) bytes.push_back(static_cast<std::uint8_t>(value >> (8 * i)));
}

/// The exponent of the fewest bytes (1, 2, 4, 8) that hold the value.
unsigned widthExponent(std::uint64_t value) {
    return value <= 0xFF ? 0 : value <= 0xFFFF ? 1 : value <= 0xFFFFFFFF ? 2 : 3;
}

unsigned bytesNeeded(std::uint64_t value) { return 1U << widthExponent(value); }

std::u16string utf16(const std::string& text) {
    std::u16string units;
    const auto length = static_cast<std::int64_t>(text.size());
    for (std::int64_t i = 0; i < length;) {
        UChar32 character = 0;
        U8_NEXT_OR_FFFD(text.data(), i, length, character);
        if (character > 0xFFFF) units.push_back(U16_LEAD(character));
        units.push_back(character > 0xFFFF ? U16_TRAIL(character) : static_cast<char16_t>(character));
    }
    return units;
}

/// Numbers the nodes first, since a container's references are as wide as the number of all nodes
/// asks for, and then writes them in that order.
class Writer {
public:
    Data write(const PropertyList& root) {
        add(root);
        referenceSize_ = bytesNeeded(nodes_.size());
        const std::string_view header = "bplist00";
        bytes_.assign(header.begin(), header.end());
        offsets_.reserve(nodes_.size());
        for (const Node& node : nodes_) {
            offsets_.push_back(bytes_.size());
            writeNode(node);
        }
        writeTable();
        return std::move(bytes_);
    }

private:
    /// A value, or a key of a dictionary.
    struct Node {
        const PropertyList* value = nullptr;
        const std::string* key = nullptr;
        std::vector<std::uint64_t> references = {};
    };

    std::uint64_t append(Node node) {
        nodes_.push_back(std::move(node));
        return nodes_.size() - 1;
    }

    template <class Map, class Key>
    std::uint64_t unique(Map& map, const Key& key, Node node) {
        const auto [entry, isNew] = map.try_emplace(key, nodes_.size());
        if (isNew) append(std::move(node));
        return entry->second;
    }

    std::uint64_t add(const PropertyList& list) {
        const Node node{.value = &list};
        if (const auto* text = std::get_if<std::string>(&list.value)) return unique(texts_, *text, {.key = text});
        if (const auto* integer = std::get_if<std::int64_t>(&list.value)) return unique(integers_, *integer, node);
        if (const auto* uid = std::get_if<ArchiveUID>(&list.value)) return unique(uids_, uid->number, node);
        if (const auto* truth = std::get_if<bool>(&list.value)) return unique(booleans_, *truth, node);
        const std::uint64_t number = append(node);
        std::vector<std::uint64_t> references;
        if (const auto* elements = std::get_if<PropertyList::List>(&list.value)) {
            references.reserve(elements->size());
            for (const PropertyList& element : *elements) references.push_back(add(element));
        } else if (const auto* fields = std::get_if<PropertyList::Fields>(&list.value)) {
            references.reserve(2 * fields->size());
            for (const auto& [key, value] : *fields) references.push_back(unique(texts_, key, {.key = &key}));
            for (const auto& [key, value] : *fields) references.push_back(add(value));
        }
        nodes_[number].references = std::move(references);
        return number;
    }

    void writeMarker(std::uint8_t kind, std::uint64_t count) {
        bytes_.push_back(static_cast<std::uint8_t>(kind << 4 | std::min<std::uint64_t>(count, 0x0F)));
        if (count >= 0x0F) writeInteger(count);
    }

    void writeInteger(std::uint64_t value) {
        const unsigned exponent = widthExponent(value);
        bytes_.push_back(static_cast<std::uint8_t>(0x10 | exponent));
        appendBigEndian(bytes_, value, 1U << exponent);
    }

    void writeText(const std::string& text) {
        if (std::ranges::all_of(text, [](char c) { return static_cast<unsigned char>(c) < 0x80; })) {
            writeMarker(0x5, text.size());
            bytes_.insert(bytes_.end(), text.begin(), text.end());
            return;
        }
        const std::u16string units = utf16(text);
        writeMarker(0x6, units.size());
        for (const char16_t unit : units) appendBigEndian(bytes_, unit, 2);
    }

    void writeReal(std::uint8_t marker, double value) {
        bytes_.push_back(marker);
        appendBigEndian(bytes_, std::bit_cast<std::uint64_t>(value), 8);
    }

    void writeReferences(const Node& node) {
        for (const std::uint64_t reference : node.references) appendBigEndian(bytes_, reference, referenceSize_);
    }

    void writeNode(const Node& node) {
        if (node.key) return writeText(*node.key);
        const auto& value = node.value->value;
        if (const auto* truth = std::get_if<bool>(&value)) {
            bytes_.push_back(*truth ? 0x09 : 0x08);
        } else if (const auto* integer = std::get_if<std::int64_t>(&value)) {
            writeInteger(static_cast<std::uint64_t>(*integer));
        } else if (const auto* large = std::get_if<std::uint64_t>(&value)) {
            bytes_.push_back(0x14);
            appendBigEndian(bytes_, 0, 8);
            appendBigEndian(bytes_, *large, 8);
        } else if (const auto* real = std::get_if<double>(&value)) {
            writeReal(0x23, *real);
        } else if (const auto* date = std::get_if<Date>(&value)) {
            writeReal(0x33, date->secondsSinceReference());
        } else if (const auto* data = std::get_if<Data>(&value)) {
            writeMarker(0x4, data->size());
            bytes_.insert(bytes_.end(), data->begin(), data->end());
        } else if (const auto* uid = std::get_if<ArchiveUID>(&value)) {
            const unsigned length = bytesNeeded(uid->number);
            bytes_.push_back(static_cast<std::uint8_t>(0x80 | (length - 1)));
            appendBigEndian(bytes_, uid->number, length);
        } else if (std::holds_alternative<PropertyList::List>(value)) {
            writeMarker(0xA, node.references.size());
            writeReferences(node);
        } else if (std::holds_alternative<PropertyList::Fields>(value)) {
            writeMarker(0xD, node.references.size() / 2);
            writeReferences(node);
        } else {
            bytes_.push_back(0x00);
        }
    }

    void writeTable() {
        const std::uint64_t table = bytes_.size();
        const unsigned offsetSize = bytesNeeded(table);
        for (const std::uint64_t offset : offsets_) appendBigEndian(bytes_, offset, offsetSize);
        appendBigEndian(bytes_, 0, 6);
        appendBigEndian(bytes_, offsetSize, 1);
        appendBigEndian(bytes_, referenceSize_, 1);
        appendBigEndian(bytes_, offsets_.size(), 8);
        appendBigEndian(bytes_, 0, 8);
        appendBigEndian(bytes_, table, 8);
    }

    std::vector<Node> nodes_;
    std::unordered_map<std::string_view, std::uint64_t> texts_;
    std::unordered_map<std::int64_t, std::uint64_t> integers_;
    std::unordered_map<std::uint64_t, std::uint64_t> uids_;
    std::unordered_map<bool, std::uint64_t> booleans_;
    unsigned referenceSize_ = 1;
    Data bytes_;
    std::vector<std::uint64_t> offsets_;
};

}  // namespace

Data binaryPropertyList(const PropertyList& root) { return Writer().write(root); }

}  // namespace dayward

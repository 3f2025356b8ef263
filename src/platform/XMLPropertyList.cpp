#include <plist/plist.h>

#include <algorithm>
#include <cstdlib>
#include <string_view>

#include "platform/BinaryPropertyList.h"
#include "platform/PropertyList.h"

namespace dayward {

namespace {

/// The parser's own structures are freed recursively, and long dictionaries are searched in line.
constexpr std::size_t kLargestDocument = 4 << 20;
constexpr int kDeepestNesting = 200;

/// Whether arrays and dictionaries are nested no deeper than the parser bears. Comments and literal
/// sections, which could hide tags, are not what an archiver writes.
bool isTame(std::string_view xml) {
    int depth = 0;
    for (std::size_t at = xml.find('<'); at != std::string_view::npos; at = xml.find('<', at + 1)) {
        const std::size_t end = std::min(xml.find_first_of("<>", at + 1), xml.size());
        const std::string_view tag = xml.substr(at + 1, end - at - 1);
        if (tag.starts_with('!') && (!tag.starts_with("!DOCTYPE") || tag.find('[') != std::string_view::npos))
            return false;
        if (tag == "/array" || tag == "/dict") --depth;
        const bool opens = tag.starts_with("array") || tag.starts_with("dict");
        if (opens && !tag.ends_with('/') && ++depth > kDeepestNesting) return false;
    }
    return true;
}

PropertyList converted(plist_t node);

PropertyList convertedArray(plist_t node) {
    PropertyList::List elements;
    plist_array_iter iterator = nullptr;
    plist_array_new_iter(node, &iterator);
    plist_t element = nullptr;
    for (plist_array_next_item(node, iterator, &element); element; plist_array_next_item(node, iterator, &element)) {
        elements.push_back(converted(element));
    }
    std::free(iterator);
    return {std::move(elements)};
}

PropertyList convertedDictionary(plist_t node) {
    PropertyList::Fields fields;
    plist_dict_iter iterator = nullptr;
    plist_dict_new_iter(node, &iterator);
    while (true) {
        char* key = nullptr;
        plist_t value = nullptr;
        plist_dict_next_item(node, iterator, &key, &value);
        if (!key) break;
        fields.emplace_back(key, converted(value));
        std::free(key);
    }
    std::free(iterator);
    // XML has no references of its own.
    const auto* number = fields.size() == 1 ? std::get_if<std::int64_t>(&fields.front().value.value) : nullptr;
    if (number && fields.front().key == "CF$UID") return {ArchiveUID{static_cast<std::uint64_t>(*number)}};
    return {std::move(fields)};
}

/// A date or a number by its binary form: the library itself tells 32 bits of a date's seconds, and nothing of a
/// number's sign.
PropertyList exactly(plist_t node) {
    char* bytes = nullptr;
    std::uint32_t length = 0;
    plist_to_bin(node, &bytes, &length);
    const auto list = BinaryPropertyList::open({reinterpret_cast<const std::uint8_t*>(bytes), length});
    const auto item = list ? list->root() : BinaryPropertyList::Item();
    std::free(bytes);
    if (item.kind == BinaryPropertyList::Kind::date) return {Date::sinceReference(item.real)};
    if (item.kind == BinaryPropertyList::Kind::unsignedInteger) return {static_cast<std::uint64_t>(item.integer)};
    return {item.integer};
}

PropertyList convertedInteger(plist_t node) {
    std::uint64_t value = 0;
    plist_get_uint_val(node, &value);
    const auto number = static_cast<std::int64_t>(value);
    return number < 0 ? exactly(node) : PropertyList{number};
}

PropertyList converted(plist_t node) {
    std::uint64_t count = 0;
    switch (plist_get_node_type(node)) {
        case PLIST_BOOLEAN: return {plist_bool_val_is_true(node) != 0};
        case PLIST_UINT: return convertedInteger(node);
        case PLIST_REAL: {
            double value = 0;
            plist_get_real_val(node, &value);
            return {value};
        }
        case PLIST_STRING: {
            const char* text = plist_get_string_ptr(node, &count);
            return {text ? std::string(text, count) : std::string()};
        }
        case PLIST_DATA: {
            const char* bytes = plist_get_data_ptr(node, &count);
            return {bytes ? Data(bytes, bytes + count) : Data()};
        }
        case PLIST_DATE: return exactly(node);
        case PLIST_UID: plist_get_uid_val(node, &count); return {ArchiveUID{count}};
        case PLIST_ARRAY: return convertedArray(node);
        case PLIST_DICT: return convertedDictionary(node);
        default: return {};
    }
}

}  // namespace

Result<Data> binaryFromXMLPropertyList(const Data& xml) {
    const auto damaged = [](const char* reason) { return failure("keyed archive", 0, {{"reason", reason}}); };
    if (xml.size() > kLargestDocument) return damaged("an XML property list of this size is not read");
    const std::string_view text(reinterpret_cast<const char*>(xml.data()), xml.size());
    if (!isTame(text)) return damaged("nested too deeply, or with comments");
    plist_t root = nullptr;
    plist_from_xml(text.data(), static_cast<std::uint32_t>(text.size()), &root);
    if (!root) return damaged("broken XML property list");
    const PropertyList list = converted(root);
    plist_free(root);
    return binaryPropertyList(list);
}

}  // namespace dayward

#include "platform/KeyedArchiveFile.h"

#include <cstring>

namespace dayward {

namespace {

constexpr std::uint64_t kBudgetForAnyFile = 4 << 20;
constexpr std::uint64_t kBudgetPerByte = 256;
constexpr std::uint64_t kCostOfValue = 64;
constexpr std::int64_t kVersion = 100000;

}  // namespace

Result<KeyedArchiveFile> KeyedArchiveFile::open(const Data& data) {
    KeyedArchiveFile file;
    const bool isBinary = data.size() >= 6 && std::memcmp(data.data(), "bplist", 6) == 0;
    if (!isBinary) {
        if (data.empty()) return archiveFailure("empty");
        file.converted_ = TRY(binaryFromXMLPropertyList(data));
    }
    file.list_ = TRY(BinaryPropertyList::open(isBinary ? data : file.converted_));
    file.budget_ = kBudgetForAnyFile + kBudgetPerByte * file.list_.size();
    const Item root = file.list_.root();
    if (root.kind != Kind::dictionary) return archiveFailure("no dictionary at the top");
    const auto archiver = file.find(root, "$archiver");
    if (!archiver || !BinaryPropertyList::equals(*archiver, "NSKeyedArchiver")) {
        return archiveFailure("not made by a keyed archiver");
    }
    const auto version = file.find(root, "$version");
    if (!version || version->kind != Kind::integer || version->integer != kVersion) {
        return archiveFailure("unknown version");
    }
    const auto objects = file.find(root, "$objects");
    if (!objects || objects->kind != Kind::array) return archiveFailure("no $objects");
    const auto top = file.find(root, "$top");
    if (!top || top->kind != Kind::dictionary) return archiveFailure("no $top");
    file.objects_ = *objects;
    file.top_ = *top;
    return file;
}

KeyedArchiveFile::Item KeyedArchiveFile::resolved(const Item& item) const {
    if (item.kind != Kind::uid) return item;
    const Item target = uid(item) == 0 ? Item{Kind::null} : object(uid(item));
    return BinaryPropertyList::equals(target, "$null") ? Item{Kind::null} : target;
}

std::optional<std::uint64_t> KeyedArchiveFile::classNumber(const Item& object) {
    if (object.kind != Kind::dictionary) return std::nullopt;
    std::uint64_t last = object.count - 1;  // where archivers put it
    const auto reference = find(object, "$class", &last);
    if (!reference || reference->kind != Kind::uid) return std::nullopt;
    return uid(*reference);
}

std::optional<KeyedArchiveFile::Item> KeyedArchiveFile::className(std::uint64_t classNumber) {
    const Item record = object(classNumber);
    if (record.kind != Kind::dictionary) return std::nullopt;
    const auto name = find(record, "$classname");
    if (!name || !BinaryPropertyList::isText(*name) || !spend(name->count)) return std::nullopt;
    return name;
}

std::optional<PropertyList> KeyedArchiveFile::extract(const Item& item, int depth) {
    if (depth > kDeepestNesting || !spend(kCostOfValue)) return std::nullopt;
    switch (item.kind) {
        case Kind::broken: return std::nullopt;
        case Kind::null: return PropertyList{};
        case Kind::boolean: return PropertyList{item.integer != 0};
        case Kind::integer: return PropertyList{item.integer};
        case Kind::unsignedInteger: return PropertyList{static_cast<std::uint64_t>(item.integer)};
        case Kind::real: return PropertyList{item.real};
        case Kind::date: return PropertyList{Date::sinceReference(item.real)};
        case Kind::uid: return PropertyList{ArchiveUID{uid(item)}};
        case Kind::data:
            if (!spend(item.count)) return std::nullopt;
            return PropertyList{BinaryPropertyList::data(item)};
        case Kind::text:
        case Kind::wideText:
            if (!spend(3 * item.count)) return std::nullopt;
            return PropertyList{BinaryPropertyList::text(item)};
        case Kind::array:
        case Kind::dictionary: break;
    }
    PropertyList::List elements;
    PropertyList::Fields fields;
    for (std::uint64_t i = 0; i < item.count; ++i) {
        auto element = extract(list_.element(item, i), depth + 1);
        if (!element) return std::nullopt;
        if (item.kind == Kind::array) {
            elements.push_back(*std::move(element));
            continue;
        }
        const Item key = list_.key(item, i);
        if (!BinaryPropertyList::isText(key) || !spend(kCostOfValue + 3 * key.count)) return std::nullopt;
        fields.emplace_back(BinaryPropertyList::text(key), *std::move(element));
    }
    if (item.kind == Kind::array) return PropertyList{std::move(elements)};
    return PropertyList{std::move(fields)};
}

}  // namespace dayward

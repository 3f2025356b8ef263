#include "Classes/Event/PropertyListFile.h"

#include <utility>

#include "platform/BinaryPropertyList.h"
#include "platform/PropertyList.h"

namespace dayward {
namespace {

constexpr int kMaximalDepth = 64;
// Texts are written once however often they occur, so a sound list may unfold to many times its size.
constexpr std::uint64_t kBudgetForAnyList = 1 << 20;
constexpr std::uint64_t kBudgetPerByte = 256;
constexpr std::uint64_t kCostOfValue = 64;

std::optional<PropertyList> listOf(const Object& value);

struct ToPropertyList {
    using Result = std::optional<PropertyList>;

    Result operator()(std::monostate) const { return std::nullopt; }
    Result operator()(const std::shared_ptr<Archivable>&) const { return std::nullopt; }
    Result operator()(const Array& array) const {
        PropertyList::List list;
        for (const auto& item : array) {
            auto element = listOf(item);
            if (!element) return std::nullopt;
            list.push_back(*std::move(element));
        }
        return PropertyList{std::move(list)};
    }
    Result operator()(const Dictionary& dictionary) const {
        PropertyList::Fields fields;
        for (const auto& [key, item] : dictionary) {
            auto element = listOf(item);
            if (!element) return std::nullopt;
            fields.emplace_back(key, *std::move(element));
        }
        return PropertyList{std::move(fields)};
    }
    template <class Plain>
    Result operator()(const Plain& plain) const {
        return PropertyList{plain};
    }
};

std::optional<PropertyList> listOf(const Object& value) { return std::visit(ToPropertyList(), value.value()); }

/// Unfolds a list in which objects may be shared or hold each other, within a budget of visits.
class Reader {
public:
    explicit Reader(const BinaryPropertyList& list) : list_(list), budget_(kBudgetForAnyList + kBudgetPerByte * list.size()) {}

    /// Nothing where the list is broken or beyond the bounds.
    std::optional<Object> read(const BinaryPropertyList::Item& item, int depth = 0) {
        using Kind = BinaryPropertyList::Kind;
        if (depth > kMaximalDepth || !take(kCostOfValue)) return std::nullopt;
        switch (item.kind) {
            case Kind::boolean: return Object(item.integer != 0);
            case Kind::integer: return Object(item.integer);
            case Kind::unsignedInteger: return Object(list_.nearestReal(item));
            case Kind::real: return Object(item.real);
            case Kind::date: return Object(Date::sinceReference(item.real));
            case Kind::data: return take(item.count) ? std::optional(Object(list_.data(item))) : std::nullopt;
            case Kind::text:
            case Kind::wideText: return take(item.count) ? std::optional(Object(list_.text(item))) : std::nullopt;
            case Kind::array: return readArray(item, depth);
            case Kind::dictionary: return readDictionary(item, depth);
            default: return std::nullopt;
        }
    }

private:
    bool take(std::uint64_t cost) {
        if (cost > budget_) return false;
        budget_ -= cost;
        return true;
    }

    std::optional<Object> readArray(const BinaryPropertyList::Item& item, int depth) {
        Array array;
        for (std::uint64_t index = 0; index < item.count; ++index) {
            auto element = read(list_.element(item, index), depth + 1);
            if (!element) return std::nullopt;
            array.push_back(*std::move(element));
        }
        return Object(std::move(array));
    }

    std::optional<Object> readDictionary(const BinaryPropertyList::Item& item, int depth) {
        Dictionary dictionary;
        for (std::uint64_t index = 0; index < item.count; ++index) {
            const auto key = list_.key(item, index);
            auto element = read(list_.element(item, index), depth + 1);
            if (!element || !BinaryPropertyList::isText(key) || !take(key.count)) return std::nullopt;
            dictionary.insert_or_assign(list_.text(key), *std::move(element));
        }
        return Object(std::move(dictionary));
    }

    const BinaryPropertyList& list_;
    std::uint64_t budget_;
};

}  // namespace

std::optional<Data> propertyListFromObject(const Object& value) {
    const auto list = listOf(value);
    return list ? std::optional(binaryPropertyList(*list)) : std::nullopt;
}

Object objectFromPropertyList(const Data& bytes) {
    // An XML list is taken in its binary form.
    const bool isXML = !bytes.empty() && bytes.front() == '<';
    const auto converted = isXML ? binaryFromXMLPropertyList(bytes) : Result<Data>(bytes);
    if (!converted) return nullptr;
    const auto list = BinaryPropertyList::open(*converted);
    if (!list) return nullptr;
    return Reader(*list).read(list->root()).value_or(Object());
}

}  // namespace dayward

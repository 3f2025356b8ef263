#include "platform/KeyedArchiver.h"

#include <bit>
#include <deque>
#include <map>
#include <memory>
#include <unordered_map>
#include <utility>
#include <vector>

#include "platform/OpaqueRecord.h"
#include "platform/PropertyList.h"

namespace dayward {

struct KeyedArchiver::Impl {
    using Fields = PropertyList::Fields;

    std::vector<PropertyList> objects{{std::string("$null")}};
    Fields* fields = nullptr;  ///< of the record that is being written
    std::unordered_map<std::string, ArchiveUID> texts;
    std::unordered_map<std::int64_t, ArchiveUID> integers;
    std::unordered_map<std::uint64_t, ArchiveUID> reals;
    std::map<bool, ArchiveUID> booleans;
    std::map<std::vector<std::string>, ArchiveUID> classes;
    /// A record made for the occasion must not give its address to the next one.
    std::unordered_map<std::shared_ptr<const Archivable>, ArchiveUID> records;
    std::map<std::pair<std::shared_ptr<const OpaqueRecord::Table>, std::uint64_t>, ArchiveUID> copies;
    std::deque<std::pair<const PropertyList*, ArchiveUID>> uncopied;

    ArchiveUID append(PropertyList object) {
        objects.push_back(std::move(object));
        return {objects.size() - 1};
    }

    template <class Map, class Key>
    ArchiveUID unique(Map& map, const Key& key, const PropertyList& object) {
        const auto known = map.find(key);
        if (known != map.end()) return known->second;
        return map[key] = append(object);
    }

    ArchiveUID classNamed(const std::vector<std::string>& chain) {
        const auto known = classes.find(chain);
        if (known != classes.end()) return known->second;
        PropertyList::List names;
        for (const std::string& name : chain) names.push_back({name});
        return classes[chain] = append({Fields{{"$classname", {chain.front()}}, {"$classes", {std::move(names)}}}});
    }

    ArchiveUID platformObject(const char* className, Fields content) {
        const ArchiveUID uid = append({});
        content.emplace_back("$class", PropertyList{classNamed({className, "NSObject"})});
        objects[uid.number].value = std::move(content);
        return uid;
    }

    ArchiveUID encode(const Object& object) {
        return std::visit([this](const auto& value) { return encodeValue(value); }, object.value());
    }

    /// Collections hold no nothing; the platform's null object stands for it there.
    PropertyList encodeElement(const Object& object) {
        return {object.isNull() ? platformObject("NSNull", {}) : encode(object)};
    }

    ArchiveUID encodeValue(std::monostate) { return {0}; }
    ArchiveUID encodeValue(bool value) { return unique(booleans, value, {value}); }
    ArchiveUID encodeValue(std::int64_t value) { return unique(integers, value, {value}); }
    ArchiveUID encodeValue(double value) { return unique(reals, std::bit_cast<std::uint64_t>(value), {value}); }
    ArchiveUID encodeValue(const Data& value) { return append({value}); }

    ArchiveUID encodeValue(const std::string& value) {
        const auto known = texts.find(value);
        if (known != texts.end()) return known->second;
        const bool readsAsNull = value == "$null";
        return texts[value] = readsAsNull ? platformObject("NSString", {{"NS.string", {value}}}) : append({value});
    }

    ArchiveUID encodeValue(Date value) {
        return platformObject("NSDate", {{"NS.time", {value.secondsSinceReference()}}});
    }

    ArchiveUID encodeValue(const Array& array) {
        const ArchiveUID uid = append({});
        PropertyList::List elements;
        elements.reserve(array.size());
        for (const Object& element : array) elements.push_back(encodeElement(element));
        objects[uid.number].value =
            Fields{{"NS.objects", {std::move(elements)}}, {"$class", {classNamed({"NSArray", "NSObject"})}}};
        return uid;
    }

    ArchiveUID encodeValue(const Dictionary& dictionary) {
        const ArchiveUID uid = append({});
        PropertyList::List keys;
        PropertyList::List values;
        for (const auto& [key, value] : dictionary) keys.push_back({encodeValue(key)});
        for (const auto& [key, value] : dictionary) values.push_back(encodeElement(value));
        objects[uid.number].value = Fields{{"NS.keys", {std::move(keys)}},
                                           {"NS.objects", {std::move(values)}},
                                           {"$class", {classNamed({"NSDictionary", "NSObject"})}}};
        return uid;
    }

    ArchiveUID encodeValue(const std::shared_ptr<Archivable>& record) {
        const auto known = records.find(record);
        if (known != records.end()) return known->second;
        if (const auto* opaque = dynamic_cast<const OpaqueRecord*>(record.get())) return encodeOpaque(*opaque);
        const ArchiveUID uid = append({});
        records[record] = uid;
        Fields content;
        Fields* const outer = std::exchange(fields, &content);
        KeyedArchiver coder(*this);
        record->encodeWithCoder(coder);
        fields = outer;
        std::vector<std::string> chain = record->archiveClassNames();
        chain.emplace_back("NSObject");
        content.emplace_back("$class", PropertyList{classNamed(chain)});
        objects[uid.number].value = std::move(content);
        return uid;
    }

    /// Copies the record with all that it reaches; by a list of what is left, since the depth of a
    /// foreign graph is not ours to choose.
    ArchiveUID encodeOpaque(const OpaqueRecord& record) {
        const ArchiveUID uid = copyOf(record.table(), record.number());
        while (!uncopied.empty()) {
            const auto [source, target] = uncopied.front();
            uncopied.pop_front();
            PropertyList copied = withNewReferences(*source, record.table());
            objects[target.number] = std::move(copied);
        }
        return uid;
    }

    ArchiveUID copyOf(const std::shared_ptr<const OpaqueRecord::Table>& table, std::uint64_t number) {
        const auto object = table->find(number);
        if (number == 0 || object == table->end()) return {0};
        const auto known = copies.find({table, number});
        if (known != copies.end()) return known->second;
        const std::vector<std::string> chain = classChainOf(object->second);
        const bool isPlainClass = !chain.empty() && std::get<Fields>(object->second.value).size() == 2;
        const ArchiveUID uid = isPlainClass ? classNamed(chain) : append({});
        copies[{table, number}] = uid;
        if (!isPlainClass) uncopied.emplace_back(&object->second, uid);
        return uid;
    }

    PropertyList withNewReferences(const PropertyList& list, const std::shared_ptr<const OpaqueRecord::Table>& table) {
        if (const auto* uid = std::get_if<ArchiveUID>(&list.value)) return {copyOf(table, uid->number)};
        if (const auto* elements = std::get_if<PropertyList::List>(&list.value)) {
            PropertyList::List copied;
            for (const PropertyList& element : *elements) copied.push_back(withNewReferences(element, table));
            return {std::move(copied)};
        }
        if (const auto* content = std::get_if<Fields>(&list.value)) {
            Fields copied;
            for (const auto& [key, value] : *content) copied.emplace_back(key, withNewReferences(value, table));
            return {std::move(copied)};
        }
        return list;
    }

    /// A key that begins with "$" would be taken for one of the layout's own.
    void put(std::string_view key, PropertyList value) {
        fields->emplace_back(key.starts_with('$') ? "$" + std::string(key) : std::string(key), std::move(value));
    }
};

Data KeyedArchiver::archivedDataWithContents(const std::function<void(KeyedArchiver&)>& encode) {
    Impl impl;
    PropertyList::Fields top;
    impl.fields = &top;
    KeyedArchiver coder(impl);
    encode(coder);
    return binaryPropertyList({PropertyList::Fields{{"$version", {std::int64_t{100000}}},
                                                    {"$archiver", {std::string("NSKeyedArchiver")}},
                                                    {"$top", {std::move(top)}},
                                                    {"$objects", {std::move(impl.objects)}}}});
}

Data KeyedArchiver::archivedDataWithRootObject(const Object& root) {
    return archivedDataWithContents([&](KeyedArchiver& coder) { coder.encodeObject(root, "root"); });
}

KeyedArchiver::KeyedArchiver(Impl& impl) : impl_(impl) {}
KeyedArchiver::~KeyedArchiver() = default;

void KeyedArchiver::encodeObject(const Object& value, std::string_view forKey) {
    impl_.put(forKey, {impl_.encode(value)});
}

void KeyedArchiver::encodeInteger(std::int64_t value, std::string_view forKey) { impl_.put(forKey, {value}); }
void KeyedArchiver::encodeBool(bool value, std::string_view forKey) { impl_.put(forKey, {value}); }
void KeyedArchiver::encodeDouble(double value, std::string_view forKey) { impl_.put(forKey, {value}); }
void KeyedArchiver::encodeVersion(std::int64_t version, std::string_view forClass) { encodeInteger(version, forClass); }

}  // namespace dayward

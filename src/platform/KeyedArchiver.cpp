#include "platform/KeyedArchiver.h"

#include <deque>
#include <map>
#include <span>
#include <utility>
#include <vector>

#include "platform/BinaryPropertyListWriter.h"
#include "platform/HashIndex.h"
#include "platform/OpaqueRecord.h"
#include "platform/PropertyList.h"

namespace dayward {

namespace {

// Enough for an event, so that nothing grows on the way.
constexpr std::size_t kUsualObjects = 64;
constexpr std::size_t kUsualRecords = 16;

}  // namespace

struct KeyedArchiver::Impl {
    using Reference = BinaryPropertyListWriter::Reference;
    using Number = std::uint32_t;  ///< of an element of "$objects"

    struct ClassRecord {
        std::size_t firstName, nameCount;
        Number number;
    };
    struct Record {
        /// A record made for the occasion must not give its address to the next one.
        std::shared_ptr<const Archivable> kept;
        Number number;
    };

    BinaryPropertyListWriter writer;
    std::vector<Reference> objects;
    std::vector<Number> numberOfLeaf;  ///< by reference, 0 for a leaf that is no object yet
    /// Keys and values of the records, and elements of the collections, that are being written, the
    /// innermost last.
    std::vector<Reference> open;
    std::vector<ClassRecord> classes;
    std::vector<Reference> classNames;
    HashIndex classIndex{kUsualRecords * 2};
    std::vector<Record> records;
    HashIndex recordIndex{kUsualRecords * 2};
    std::map<std::pair<std::shared_ptr<const OpaqueRecord::Table>, std::uint64_t>, Number> copies;
    std::deque<std::pair<const PropertyList*, Number>> uncopied;

    Impl() {
        objects.reserve(kUsualObjects);
        open.reserve(2 * kUsualObjects);
        append(writer.text("$null"));
    }

    Number append(Reference object = 0) {
        objects.push_back(object);
        return static_cast<Number>(objects.size() - 1);
    }

    /// The object of a leaf; equal leaves are one object.
    Number leaf(Reference reference) {
        if (reference >= numberOfLeaf.size()) numberOfLeaf.resize(2 * reference + kUsualObjects);
        Number& number = numberOfLeaf[reference];
        if (number == 0) number = append(reference);
        return number;
    }

    std::span<const Reference> openFrom(std::size_t begin) const { return std::span(open).subspan(begin); }

    void put(std::string_view key, Reference value) {
        open.push_back(writer.text(key));
        open.push_back(value);
    }

    /// Ends the array whose elements were opened from `begin` on.
    Reference array(std::size_t begin) {
        const Reference made = writer.array(openFrom(begin));
        open.resize(begin);
        return made;
    }

    Reference dictionary(std::size_t begin) {
        const Reference made = writer.dictionary(openFrom(begin));
        open.resize(begin);
        return made;
    }

    /// Ends the object whose keys and values were opened from `begin` on.
    void finish(Number number, std::size_t begin, Number classNumber) {
        put("$class", writer.uid(classNumber));
        objects[number] = dictionary(begin);
    }

    Number platformClass(std::string_view name) { return classNamed(std::span(&name, 1)); }

    /// The class of these names, nearest first, without the root's.
    template <class Names>
    Number classNamed(const Names& names) {
        const std::size_t begin = classNames.size();
        for (const std::string_view name : names) classNames.push_back(writer.text(name));
        classNames.push_back(writer.text("NSObject"));
        return classOf(begin);
    }

    Number classOf(std::size_t begin) {
        const auto chain = std::span(classNames).subspan(begin);
        std::uint64_t hash = chain.size();
        for (const Reference name : chain) hash = HashIndex::mixed(hash, name);
        const auto next = static_cast<std::uint32_t>(classes.size());
        const std::uint32_t known = classIndex.findOrAdd(hash, next, [&](std::uint32_t candidate) {
            const auto& [first, count, number] = classes[candidate];
            return std::ranges::equal(std::span(classNames).subspan(first, count), chain);
        });
        if (known == next) {
            classes.push_back({begin, chain.size(), append()});
            objects[classes.back().number] = classRecord(chain);
        } else {
            classNames.resize(begin);
        }
        return classes[known].number;
    }

    Reference classRecord(std::span<const Reference> chain) {
        const std::size_t begin = open.size();
        put("$classname", chain.front());
        put("$classes", writer.array(chain));
        return dictionary(begin);
    }

    Number encode(const Object& object) {
        return std::visit([this](const auto& value) { return encodeValue(value); }, object.value());
    }

    /// Collections hold no nothing; the platform's null object stands for it there.
    Number encodeElement(const Object& object) {
        if (!object.isNull()) return encode(object);
        const Number number = append();
        finish(number, open.size(), platformClass("NSNull"));
        return number;
    }

    Number encodeValue(std::monostate) { return 0; }
    Number encodeValue(bool value) { return leaf(writer.boolean(value)); }
    Number encodeValue(std::int64_t value) { return leaf(writer.integer(value)); }
    Number encodeValue(double value) { return leaf(writer.real(value)); }
    Number encodeValue(const Data& value) { return leaf(writer.data(value)); }

    /// A text like the null object's would be read as it.
    Number encodeValue(std::string_view value) {
        const Reference text = writer.text(value);
        if (text != objects.front()) return leaf(text);
        const Number number = append();
        const std::size_t begin = open.size();
        put("NS.string", text);
        finish(number, begin, platformClass("NSString"));
        return number;
    }

    Number encodeValue(Date value) {
        const Number number = append();
        const std::size_t begin = open.size();
        put("NS.time", writer.real(value.secondsSinceReference()));
        finish(number, begin, platformClass("NSDate"));
        return number;
    }

    /// `encodeNext(i)` gives the number of the element.
    template <class EncodeNext>
    Number encodeArray(std::size_t count, EncodeNext encodeNext) {
        const Number number = append();
        const std::size_t begin = open.size();
        for (std::size_t i = 0; i < count; ++i) open.push_back(writer.uid(encodeNext(i)));
        const Reference elements = array(begin);
        put("NS.objects", elements);
        finish(number, begin, platformClass("NSArray"));
        return number;
    }

    Number encodeValue(const Array& array) {
        return encodeArray(array.size(), [&](std::size_t i) { return encodeElement(array[i]); });
    }

    Number encodeValue(const Dictionary& dictionary) {
        const Number number = append();
        const std::size_t begin = open.size();
        for (const auto& [key, value] : dictionary) open.push_back(writer.uid(encodeValue(key)));
        const Reference keys = array(begin);
        for (const auto& [key, value] : dictionary) open.push_back(writer.uid(encodeElement(value)));
        const Reference values = array(begin);
        put("NS.keys", keys);
        put("NS.objects", values);
        finish(number, begin, platformClass("NSDictionary"));
        return number;
    }

    Number encodeValue(const std::shared_ptr<Archivable>& record) {
        const auto hash = HashIndex::mixed(0, reinterpret_cast<std::uintptr_t>(record.get()));
        const auto next = static_cast<std::uint32_t>(records.size());
        const auto isSame = [&](std::uint32_t candidate) { return records[candidate].kept == record; };
        const std::uint32_t known = recordIndex.findOrAdd(hash, next, isSame);
        if (known != next) return records[known].number;
        if (const auto* opaque = dynamic_cast<const OpaqueRecord*>(record.get())) {
            records.push_back({record, 0});
            return records[known].number = encodeOpaque(*opaque);
        }
        records.push_back({record, append()});
        return encodeRecord(*record, records[known].number);
    }

    Number encodeRecord(const Archivable& record, Number number) {
        const std::size_t begin = open.size();
        KeyedArchiver coder(*this);
        record.encodeWithCoder(coder);
        finish(number, begin, classNamed(record.archiveClassNames()));
        return number;
    }

    /// Copies the record with all that it reaches; by a list of what is left, since the depth of a
    /// foreign graph is not ours to choose.
    Number encodeOpaque(const OpaqueRecord& record) {
        const auto& table = record.table();
        const Number number = copyOf(table, record.number());
        while (!uncopied.empty()) {
            const auto [source, target] = uncopied.front();
            uncopied.pop_front();
            objects[target] =
                addPropertyList(writer, *source, [&](ArchiveUID uid) { return copyOf(table, uid.number); });
        }
        return number;
    }

    Number copyOf(const std::shared_ptr<const OpaqueRecord::Table>& table, std::uint64_t source) {
        const auto object = table->find(source);
        if (source == 0 || object == table->end()) return 0;
        const auto known = copies.find({table, source});
        if (known != copies.end()) return known->second;
        std::vector<std::string> chain = classChainOf(object->second);
        const bool isPlainClass = !chain.empty() && chain.back() == "NSObject" &&
                                  std::get<PropertyList::Fields>(object->second.value).size() == 2;
        if (isPlainClass) chain.pop_back();
        const Number number = isPlainClass ? classNamed(chain) : append();
        copies[{table, source}] = number;
        if (!isPlainClass) uncopied.emplace_back(&object->second, number);
        return number;
    }

    /// A key that begins with "$" would be taken for one of the layout's own.
    void putField(std::string_view key, Reference value) {
        if (key.starts_with('$')) {
            put("$" + std::string(key), value);
        } else {
            put(key, value);
        }
    }

    void putObject(std::string_view key, Number number) { putField(key, writer.uid(number)); }

    /// The whole archive, whose top entries were opened.
    Data archive() {
        const Reference top = dictionary(0);
        put("$version", writer.integer(100000));
        put("$archiver", writer.text("NSKeyedArchiver"));
        put("$top", top);
        put("$objects", writer.array(objects));
        return writer.finish(dictionary(0));
    }
};

Data KeyedArchiver::archivedDataWithContents(const std::function<void(KeyedArchiver&)>& encode) {
    Impl impl;
    KeyedArchiver coder(impl);
    encode(coder);
    return impl.archive();
}

Data KeyedArchiver::archivedDataWithRootObject(const Object& root) {
    return archivedDataWithContents([&](KeyedArchiver& coder) { coder.encodeObject(root, "root"); });
}

KeyedArchiver::KeyedArchiver(Impl& impl) : impl_(impl) {}
KeyedArchiver::~KeyedArchiver() = default;

void KeyedArchiver::encodeObject(const Object& value, std::string_view forKey) {
    impl_.putObject(forKey, impl_.encode(value));
}

void KeyedArchiver::encodeString(const std::optional<std::string>& value, std::string_view forKey) {
    impl_.putObject(forKey, value ? impl_.encodeValue(std::string_view(*value)) : 0);
}

void KeyedArchiver::encodeDate(Date value, std::string_view forKey) {
    impl_.putObject(forKey, impl_.encodeValue(value));
}

void KeyedArchiver::encodeIntegers(std::span<const std::int64_t> values, std::string_view forKey) {
    impl_.putObject(forKey,
                    impl_.encodeArray(values.size(), [&](std::size_t i) { return impl_.encodeValue(values[i]); }));
}

void KeyedArchiver::encodeRecord(const Archivable* record, std::string_view forKey) {
    impl_.putObject(forKey, record ? impl_.encodeRecord(*record, impl_.append()) : 0);
}

void KeyedArchiver::encodeRecords(std::size_t count, const std::function<const Archivable&(std::size_t)>& record,
                                  std::string_view forKey) {
    const auto encodeNext = [&](std::size_t i) { return impl_.encodeRecord(record(i), impl_.append()); };
    impl_.putObject(forKey, impl_.encodeArray(count, encodeNext));
}

void KeyedArchiver::encodeInteger(std::int64_t value, std::string_view forKey) {
    impl_.putField(forKey, impl_.writer.integer(value));
}

void KeyedArchiver::encodeBool(bool value, std::string_view forKey) {
    impl_.putField(forKey, impl_.writer.boolean(value));
}

void KeyedArchiver::encodeDouble(double value, std::string_view forKey) {
    impl_.putField(forKey, impl_.writer.real(value));
}

void KeyedArchiver::encodeVersion(std::int64_t version, std::string_view forClass) { encodeInteger(version, forClass); }

}  // namespace dayward

#include "platform/KeyedUnarchiver.h"

#include <vector>

#include "platform/Environment.h"
#include "platform/FatalError.h"
#include "platform/KeyedArchiveFile.h"
#include "platform/OpaqueRecord.h"

namespace dayward {

namespace {

constexpr std::uint64_t kCostOfValue = 64;
constexpr std::uint64_t kCostOfPair = 160;

enum class ClassKind : std::uint8_t { array, dictionary, date, string, data, null, record, unknown };

ClassKind platformClass(std::string_view name) {
    if (name == "NSArray" || name == "NSMutableArray") return ClassKind::array;
    if (name == "NSDictionary" || name == "NSMutableDictionary") return ClassKind::dictionary;
    if (name == "NSDate") return ClassKind::date;
    if (name == "NSString" || name == "NSMutableString") return ClassKind::string;
    if (name == "NSData" || name == "NSMutableData") return ClassKind::data;
    if (name == "NSNull") return ClassKind::null;
    return ClassKind::unknown;
}

}  // namespace

struct KeyedUnarchiver::Impl {
    using Item = KeyedArchiveFile::Item;
    using Kind = KeyedArchiveFile::Kind;

    struct KnownClass {
        ClassKind kind = ClassKind::unknown;
        const ArchiveClasses::Reader* reader = nullptr;
    };

    /// What is known of the object, and, where it is a class record, of the class.
    struct Slot {
        enum class State : std::uint8_t { untouched, beingRead, read } state = State::untouched;
        bool isClassKnown = false;
        KnownClass knownClass;
        std::shared_ptr<Archivable> record;
    };

    Impl(KeyedArchiveFile openedFile, const ArchiveClasses& archiveClasses, OnRefusal whenRefused)
        : file(std::move(openedFile)), classes(archiveClasses), onRefusal(whenRefused), slots(file.objectCount()) {}

    KeyedArchiveFile file;
    const ArchiveClasses& classes;
    const OnRefusal onRefusal;
    std::vector<Slot> slots;
    std::shared_ptr<OpaqueRecord::Table> opaqueObjects;
    std::string failureReason;
    /// The record that is being read.
    struct Current {
        Item item;
        std::uint64_t keyKinds = 0;
        std::uint64_t nextPair = 0;
    } current;
    int depth = 0;

    void fail(std::string reason) {
        if (failureReason.empty()) failureReason = std::move(reason);
    }

    bool mayGoOn() {
        if (file.isExhausted()) fail("objects are repeated too often");
        return failureReason.empty();
    }

    std::optional<Item> value(std::string_view key) {
        if (!mayGoOn()) return std::nullopt;
        if (key.starts_with('$')) return file.find(current.item, "$" + std::string(key), &current.nextPair);
        if ((current.keyKinds & BinaryPropertyList::kindOfKey(key)) == 0) return std::nullopt;
        return file.find(current.item, key, &current.nextPair);
    }

    Current beginning(const Item& record) {
        return {.item = record, .keyKinds = file.spend(record.count) ? file.list().keyKinds(record) : 0};
    }

    Object decode(const Item& item) {
        if (item.kind == Kind::uid) return decodeNumber(KeyedArchiveFile::uid(item));
        return decodeInPlace(item);
    }

    Object decodeInPlace(const Item& item) {
        if (!mayGoOn() || !file.spend(kCostOfValue)) return {};
        switch (item.kind) {
            case Kind::broken: fail("a damaged object"); return {};
            case Kind::null: return {};
            case Kind::boolean: return item.integer != 0;
            case Kind::integer: return item.integer;
            case Kind::unsignedInteger: return BinaryPropertyList::nearestReal(item);
            case Kind::real: return item.real;
            case Kind::date: return Date::sinceReference(item.real);
            case Kind::text:
            case Kind::wideText:
                if (!file.spend(3 * item.count)) return {};
                return BinaryPropertyList::text(item);
            case Kind::data:
                if (!file.spend(item.count)) return {};
                return BinaryPropertyList::data(item);
            case Kind::array:
            case Kind::dictionary: return decodeContainer(item);
            case Kind::uid: break;
        }
        fail("a reference in the place of an object");
        return {};
    }

    Object decodeNumber(std::uint64_t number) {
        if (number == 0) return {};
        const Item object = file.object(number);
        if (object.kind == Kind::broken) {
            fail("a reference to object " + std::to_string(number) + ", which is missing or damaged");
            return {};
        }
        if (BinaryPropertyList::equals(object, "$null")) return {};
        if (object.kind != Kind::dictionary) return decodeInPlace(object);
        return decodeInstance(number, object);
    }

    Object decodeInstance(std::uint64_t number, const Item& object) {
        Slot& slot = slots[number];
        if (slot.state == Slot::State::read) return slot.record;
        if (slot.state == Slot::State::beingRead || !mayGoOn() || !file.spend(kCostOfValue)) return {};
        const auto classNumber = file.classNumber(object);
        if (!classNumber) {
            fail("object " + std::to_string(number) + " has no class");
            return {};
        }
        if (!enter()) return {};
        slot.state = Slot::State::beingRead;
        const KnownClass known = knownClass(*classNumber);
        Object result = decodeOfClass(known, number, object);
        slot.record = result.record();
        const bool isShared = slot.record || known.kind == ClassKind::record;
        slot.state = isShared ? Slot::State::read : Slot::State::untouched;
        --depth;
        return result;
    }

    KnownClass knownClass(std::uint64_t number) {
        if (number < slots.size() && slots[number].isClassKnown) return slots[number].knownClass;
        const auto name = file.className(number);
        if (!name) {
            fail("object " + std::to_string(number) + " is no class");
            return {};
        }
        const KnownClass known = name->kind == Kind::text ? classNamed(BinaryPropertyList::bytesOf(*name))
                                                          : classNamed(BinaryPropertyList::text(*name));
        slots[number].isClassKnown = true;
        slots[number].knownClass = known;
        return known;
    }

    KnownClass classNamed(std::string_view name) const {
        if (const auto* reader = classes.reader(name)) return {ClassKind::record, reader};
        return {platformClass(name), nullptr};
    }

    Object decodeOfClass(const KnownClass& known, std::uint64_t number, const Item& object) {
        if (!mayGoOn()) return {};
        switch (known.kind) {
            case ClassKind::array: return decodeElements(contentOf(object, "NS.objects", Kind::array));
            case ClassKind::dictionary: return decodeDictionary(number, object);
            case ClassKind::date: return decodeDate(object);
            case ClassKind::string: return decodeText(object);
            case ClassKind::data: return decodeBytes(object);
            case ClassKind::null: return {};
            case ClassKind::record: return decodeRecord(*known.reader, object);
            case ClassKind::unknown: return decodeOpaque(number);
        }
        return {};
    }

    /// What a platform object holds under a key, resolved; an empty item of the kind where it holds
    /// something else.
    Item contentOf(const Item& object, std::string_view key, Kind kind) {
        const auto found = file.find(object, key);
        const Item content = found ? file.resolved(*found) : Item{};
        return content.kind == kind ? content : Item{kind};
    }

    bool enter() {
        if (depth == KeyedArchiveFile::kDeepestNesting) {
            fail("nested too deeply");
            return false;
        }
        ++depth;
        return true;
    }

    /// A collection that stands in the place of an object, without a class.
    Object decodeContainer(const Item& item) {
        if (!enter()) return {};
        Object result = item.kind == Kind::array ? decodeElements(item) : decodePairs(item);
        --depth;
        return result;
    }

    Object decodeElements(const Item& array) {
        Array elements;
        if (!file.spend(kCostOfValue * array.count)) return {};
        elements.reserve(array.count);
        for (std::uint64_t i = 0; i < array.count && mayGoOn(); ++i) {
            elements.push_back(decode(file.list().element(array, i)));
        }
        return elements;
    }

    Object decodePairs(const Item& dictionary) {
        Dictionary pairs;
        for (std::uint64_t i = 0; i < dictionary.count && mayGoOn(); ++i) {
            const Item key = file.list().key(dictionary, i);
            if (!BinaryPropertyList::isText(key)) {
                fail("a key that is no text");
                break;
            }
            if (!file.spend(kCostOfPair + 3 * key.count)) break;
            pairs.try_emplace(BinaryPropertyList::text(key), decode(file.list().element(dictionary, i)));
        }
        return pairs;
    }

    /// A dictionary with other keys than strings is kept whole.
    Object decodeDictionary(std::uint64_t number, const Item& object) {
        const Item keys = contentOf(object, "NS.keys", Kind::array);
        const Item values = contentOf(object, "NS.objects", Kind::array);
        if (keys.count != values.count) {
            fail("a dictionary with " + std::to_string(keys.count) + " keys and " + std::to_string(values.count) +
                 " values");
            return {};
        }
        Dictionary pairs;
        for (std::uint64_t i = 0; i < keys.count && mayGoOn(); ++i) {
            if (!file.spend(kCostOfPair)) break;
            const Object key = decode(file.list().element(keys, i));
            if (!key.string()) return mayGoOn() ? decodeOpaque(number) : Object();
            pairs.try_emplace(*key.string(), decode(file.list().element(values, i)));
        }
        return pairs;
    }

    Object decodeDate(const Item& object) {
        const auto time = file.find(object, "NS.time");
        const auto seconds = time ? numberIn(file.resolved(*time)).number() : std::nullopt;
        return seconds ? Object(Date::sinceReference(*seconds)) : Object();
    }

    Object decodeText(const Item& object) {
        if (const auto text = file.find(object, "NS.string")) return stringIn(file.resolved(*text));
        const Item bytes = contentOf(object, "NS.bytes", Kind::data);
        if (!file.spend(3 * bytes.count)) return {};
        return bytes.payload ? Object(BinaryPropertyList::textOfUTF8(bytes)) : Object();
    }

    Object decodeBytes(const Item& object) {
        Item bytes = contentOf(object, "NS.data", Kind::data);
        if (!bytes.payload) bytes = contentOf(object, "NS.bytes", Kind::data);
        return decodeInPlace(bytes);
    }

    Object decodeRecord(const ArchiveClasses::Reader& reader, const Item& object) {
        const Current outer = std::exchange(current, beginning(object));
        KeyedUnarchiver coder(*this);
        std::shared_ptr<Archivable> record = reader(coder);
        current = outer;
        return record;
    }

    Object decodeOpaque(std::uint64_t number) {
        if (!opaqueObjects) opaqueObjects = std::make_shared<OpaqueRecord::Table>();
        std::vector<std::uint64_t> toExtract{number};
        while (!toExtract.empty()) {
            const std::uint64_t next = toExtract.back();
            toExtract.pop_back();
            if (next == 0 || opaqueObjects->contains(next)) continue;
            auto object = file.extract(file.object(next));
            if (!object) {
                if (mayGoOn()) fail("object " + std::to_string(next) + " is missing or damaged");
                return {};
            }
            collectReferences(*object, toExtract);
            opaqueObjects->emplace(next, *std::move(object));
        }
        return std::make_shared<OpaqueRecord>(opaqueObjects, number);
    }

    static void collectReferences(const PropertyList& list, std::vector<std::uint64_t>& numbers) {
        if (const auto* uid = std::get_if<ArchiveUID>(&list.value)) {
            numbers.push_back(uid->number);
        } else if (const auto* elements = std::get_if<PropertyList::List>(&list.value)) {
            for (const PropertyList& element : *elements) collectReferences(element, numbers);
        } else if (const auto* fields = std::get_if<PropertyList::Fields>(&list.value)) {
            for (const auto& [key, element] : *fields) collectReferences(element, numbers);
        }
    }

    /// The number in an item, null where it holds none.
    static Object numberIn(const Item& item) {
        if (item.kind == Kind::boolean) return item.integer != 0;
        if (item.kind == Kind::integer) return item.integer;
        if (item.kind == Kind::unsignedInteger) return BinaryPropertyList::nearestReal(item);
        if (item.kind == Kind::real) return item.real;
        return {};
    }

    Object stringIn(const Item& item) {
        if (!BinaryPropertyList::isText(item) || !file.spend(3 * item.count)) return {};
        return BinaryPropertyList::text(item);
    }

    /// The text where the item is one or leads to one, without an object made for it.
    std::optional<std::string> decodeString(const Item& item) {
        const Item target = item.kind == Kind::uid ? file.object(KeyedArchiveFile::uid(item)) : item;
        const bool isPlain = BinaryPropertyList::isText(target) && !BinaryPropertyList::equals(target, "$null");
        if (!isPlain) return decode(item).stringValue();
        if (!file.spend(kCostOfValue + 3 * target.count)) return std::nullopt;
        return BinaryPropertyList::text(target);
    }

    /// What stands under the key or where that leads to; `broken` where there is nothing.
    Item scalar(std::string_view key) {
        const auto found = value(key);
        return found ? file.resolved(*found) : Item{};
    }

    static bool isWhole(const Item& item) { return item.kind == Kind::integer || item.kind == Kind::boolean; }

    Result<> result() {
        if (mayGoOn()) return {};
        return archiveFailure(failureReason);
    }
};

Result<> KeyedUnarchiver::unarchiveContents(const Data& data, const ArchiveClasses& classes,
                                            const std::function<void(KeyedUnarchiver&)>& decode,
                                            OnRefusal onRefusal) {
    Impl impl(TRY(KeyedArchiveFile::open(data)), classes, onRefusal);
    impl.current = impl.beginning(impl.file.top());
    KeyedUnarchiver coder(impl);
    decode(coder);
    return impl.result();
}

Result<Object> KeyedUnarchiver::unarchiveObjectWithData(const Data& data, const ArchiveClasses& classes,
                                                        OnRefusal onRefusal) {
    Object root;
    bool hasRoot = false;
    const auto decode = [&](KeyedUnarchiver& coder) {
        hasRoot = coder.containsValue("root");
        root = coder.decodeObject("root");
    };
    TRY_VOID(unarchiveContents(data, classes, decode, onRefusal));
    if (!hasRoot) return archiveFailure("no root object");
    return root;
}

Result<Object> KeyedUnarchiver::unarchiveObjectWithData(const Data& data) {
    return unarchiveObjectWithData(data, Environment::current().archiveClasses());
}

KeyedUnarchiver::KeyedUnarchiver(Impl& impl) : impl_(impl) {}
KeyedUnarchiver::~KeyedUnarchiver() = default;

bool KeyedUnarchiver::containsValue(std::string_view forKey) const { return impl_.value(forKey).has_value(); }

Object KeyedUnarchiver::decodeObject(std::string_view forKey) {
    const auto found = impl_.value(forKey);
    return found ? impl_.decode(*found) : Object();
}

std::optional<std::int64_t> KeyedUnarchiver::decodeInteger(std::string_view forKey) {
    const auto item = impl_.scalar(forKey);
    return Impl::isWhole(item) ? item.integer : Impl::numberIn(item).integer();
}

std::optional<bool> KeyedUnarchiver::decodeBool(std::string_view forKey) {
    const auto item = impl_.scalar(forKey);
    return Impl::isWhole(item) ? item.integer != 0 : Impl::numberIn(item).boolean();
}

std::optional<double> KeyedUnarchiver::decodeDouble(std::string_view forKey) {
    const auto item = impl_.scalar(forKey);
    return item.kind == Impl::Kind::real ? item.real : Impl::numberIn(item).number();
}

std::optional<std::string> KeyedUnarchiver::decodeString(std::string_view forKey) {
    const auto found = impl_.value(forKey);
    return found ? impl_.decodeString(*found) : std::nullopt;
}

std::optional<Date> KeyedUnarchiver::decodeDate(std::string_view forKey) { return decodeObject(forKey).date(); }

std::optional<Data> KeyedUnarchiver::decodeData(std::string_view forKey) {
    const Object object = decodeObject(forKey);
    return object.data() ? std::optional(*object.data()) : std::nullopt;
}

std::optional<std::int64_t> KeyedUnarchiver::decodeVersion(std::string_view forClass) {
    return decodeInteger(forClass);
}

void KeyedUnarchiver::refuse(std::string reason) {
    if (impl_.onRefusal == OnRefusal::stop) fatalError(reason);
    impl_.fail(std::move(reason));
}

}  // namespace dayward

// Our property lists and archives against libplist, over random ones, in both directions.
#include "platform/PlistPeer.h"

#include <cmath>

#include "platform/ArchiveDump.h"
#include "platform/ArchiveFixture.h"
#include "platform/BinaryPropertyListWriter.h"
#include "platform/KeyedArchiveFile.h"
#include "platform/PropertyList.h"

namespace dayward {
namespace {

constexpr unsigned kSeed = 20261121;

/// A random list beside its number in a writer; containers are also shared.
class Making {
public:
    using Made = std::pair<PropertyList, BinaryPropertyListWriter::Reference>;

    Making(RandomValues& random, BinaryPropertyListWriter& writer) : random_(random), writer_(writer) {}

    Made list(int depth = 0) {
        if (!containers_.empty() && random_.oneIn(20)) return containers_[random_.below(containers_.size())];
        if (depth > 3 || random_.oneIn(3)) return leaf();
        Made made = random_.oneIn(2) ? array(depth) : dictionary(depth);
        // Large ones that are shared many times are refused.
        if (containers_.size() < 16 && binaryPropertyList(made.first).size() < 2000) containers_.push_back(made);
        return made;
    }

private:
    Made leaf() {
        PropertyList made;
        switch (random_.below(8)) {
            case 0: made.value = random_.oneIn(2); break;
            case 1: made.value = random_.integer(); break;
            case 2: made.value = std::uint64_t{1} << 63 | random_.below(1000); break;
            case 3: made.value = random_.real(); break;
            case 4:
                made.value = Date::sinceReference(static_cast<double>(random_.integer() % 1'000'000'000) / 4);
                break;
            case 5: made.value = random_.text(); break;
            case 6: made.value = Data(random_.count(), static_cast<std::uint8_t>(random_.below(256))); break;
            default: made.value = ArchiveUID{random_.below(1U << random_.below(32))}; break;
        }
        const auto number = addPropertyList(writer_, made, &ArchiveUID::number);
        return {std::move(made), number};
    }

    /// Large ones hold leaves, or the sizes multiply.
    std::size_t countAt(int& depth) {
        const std::size_t count = random_.count();
        depth = count > 20 ? 9 : depth + 1;
        return count > 300 && !random_.oneIn(10) ? 3 : count;
    }

    Made array(int depth) {
        PropertyList::List elements;
        std::vector<BinaryPropertyListWriter::Reference> numbers;
        for (std::size_t i = countAt(depth); i > 0; --i) {
            auto [element, number] = elements.size() > 300 ? Made{{true}, writer_.boolean(true)} : list(depth);
            elements.push_back(std::move(element));
            numbers.push_back(number);
        }
        return {{std::move(elements)}, writer_.array(numbers)};
    }

    Made dictionary(int depth) {
        PropertyList::Fields fields;
        std::vector<BinaryPropertyListWriter::Reference> numbers;
        for (std::size_t i = countAt(depth) % 300; i > 0; --i) {
            const std::string key = std::to_string(i) + (random_.oneIn(2) ? "" : "/" + random_.text());
            auto [value, number] = list(depth);
            numbers.push_back(writer_.text(key));
            numbers.push_back(number);
            fields.emplace_back(key, std::move(value));
        }
        return {{std::move(fields)}, writer_.dictionary(numbers)};
    }

    RandomValues& random_;
    BinaryPropertyListWriter& writer_;
    std::vector<Made> containers_;
};

bool isSame(plist_t node, const PropertyList& list);

/// Whether a node of libplist holds the value.
struct IsSame {
    plist_t node;
    plist_type type = plist_get_node_type(node);

    bool operator()(std::monostate) const { return false; }
    bool operator()(bool value) const { return type == PLIST_BOOLEAN && (plist_bool_val_is_true(node) != 0) == value; }
    bool operator()(std::int64_t value) const { return type == PLIST_UINT && PeerList::integer(node) == value; }
    bool operator()(std::uint64_t value) const { return (*this)(static_cast<std::int64_t>(value)); }
    bool operator()(double value) const { return type == PLIST_REAL && PeerList::real(node) == value; }
    bool operator()(Date value) const {
        std::int32_t seconds = 0;
        std::int32_t microseconds = 0;
        plist_get_date_val(node, &seconds, &microseconds);
        // It gives the fraction without its sign.
        const double length = std::abs(static_cast<double>(seconds)) + microseconds / 1e6;
        return type == PLIST_DATE && std::abs(length - std::abs(value.secondsSinceReference())) < 2e-6;
    }
    bool operator()(const std::string& value) const { return type == PLIST_STRING && PeerList::text(node) == value; }
    bool operator()(const Data& value) const {
        std::uint64_t length = 0;
        const char* bytes = plist_get_data_ptr(node, &length);
        return type == PLIST_DATA && Data(bytes, bytes + length) == value;
    }
    bool operator()(ArchiveUID value) const { return type == PLIST_UID && PeerList::uid(node) == value.number; }
    bool operator()(const PropertyList::List& elements) const {
        if (type != PLIST_ARRAY || plist_array_get_size(node) != elements.size()) return false;
        plist_array_iter place = nullptr;
        plist_array_new_iter(node, &place);
        bool isAll = true;
        for (const PropertyList& element : elements) {
            plist_t next = nullptr;
            plist_array_next_item(node, place, &next);
            isAll = isAll && isSame(next, element);
        }
        std::free(place);
        return isAll;
    }
    bool operator()(const PropertyList::Fields& fields) const {
        if (type != PLIST_DICT || plist_dict_get_size(node) != fields.size()) return false;
        return std::ranges::all_of(fields, [&](const PropertyList::Field& field) {
            plist_t value = plist_dict_get_item(node, field.key.c_str());
            return value && isSame(value, field.value);
        });
    }
};

bool isSame(plist_t node, const PropertyList& list) { return std::visit(IsSame{node}, list.value); }

/// Whether our reader finds the same in what libplist has written.
bool isSame(const PropertyList& read, const PropertyList& list) {
    if (const auto* elements = std::get_if<PropertyList::List>(&list.value)) {
        const auto* others = std::get_if<PropertyList::List>(&read.value);
        return others && std::ranges::equal(*others, *elements,
                                            [](const auto& one, const auto& other) { return isSame(one, other); });
    }
    if (const auto* fields = std::get_if<PropertyList::Fields>(&list.value)) {
        const auto* others = std::get_if<PropertyList::Fields>(&read.value);
        return others && std::ranges::equal(*others, *fields, [](const auto& one, const auto& other) {
                   return one.key == other.key && isSame(one.value, other.value);
               });
    }
    return read.value.index() == list.value.index() && binaryPropertyList(read) == binaryPropertyList(list);
}

/// An archive whose object 1 is the random list.
std::pair<PropertyList, Data> archiveOf(RandomValues& random) {
    BinaryPropertyListWriter writer;
    auto [list, number] = Making(random, writer).list();
    const auto text = [&](const char* value) { return writer.text(value); };
    const auto objects = writer.array(std::vector{text("$null"), number});
    const auto top = writer.dictionary(std::vector{text("root"), writer.uid(1)});
    return {std::move(list), writer.finish(writer.dictionary(
                                 std::vector{text("$version"), writer.integer(100000), text("$archiver"),
                                             text("NSKeyedArchiver"), text("$top"), top, text("$objects"), objects}))};
}

TEST(PlistPeer, readsWhatWeWriteAndWritesWhatWeRead) {
    RandomValues random(kSeed);
    for (int round = 0; round < archiveCases(); ++round) {
        SCOPED_TRACE("round " + std::to_string(round));
        const auto [list, bytes] = archiveOf(random);
        const PeerList peer(bytes);
        ASSERT_TRUE(peer.root);
        plist_t objects = plist_dict_get_item(peer.root, "$objects");
        ASSERT_TRUE(isSame(plist_array_get_item(objects, 1), list));
        for (const Data& read : {bytes, peer.rewritten()}) {
            auto file = KeyedArchiveFile::open(read);
            ASSERT_TRUE(file);
            const auto extracted = file->extract(file->object(1));
            ASSERT_TRUE(extracted && isSame(*extracted, list));
        }
    }
}

Object randomObject(RandomValues& random, int depth = 0) {
    switch (random.below(depth > 3 ? 7 : 10)) {
        case 0: return nullptr;
        case 1: return random.oneIn(2);
        case 2: return random.integer();
        case 3: return random.real();
        case 4: return random.text();
        case 5: return Data(random.count(), 7);
        case 6: return Date::sinceReference(random.real());
        case 7: {
            const auto record = std::make_shared<TestRecord>();
            record->text = random.text();
            record->count = random.integer();
            record->list = randomObject(random, depth + 1);
            return record;
        }
        case 8: {
            Array array(random.below(20));
            for (Object& element : array) element = randomObject(random, depth + 1);
            return array;
        }
        default: {
            Dictionary dictionary;
            for (std::uint64_t i = random.below(20); i > 0; --i)
                dictionary[random.text()] = randomObject(random, depth + 1);
            return dictionary;
        }
    }
}

TEST(PlistPeer, archivesGoThroughItUnchanged) {
    RandomValues random(kSeed + 1);
    for (int round = 0; round < archiveCases(); ++round) {
        const Object object = randomObject(random);
        const Data bytes = KeyedArchiver::archivedDataWithRootObject(object);
        const Data again = PeerList(bytes).rewritten();
        for (const Data& read : {bytes, again})
            ASSERT_EQ(KeyedArchiver::archivedDataWithRootObject(rootOf(read)), bytes) << "round " << round;
    }
}

TEST(PlistPeer, damagedBytesOfEitherAreSurvived) {
    RandomValues random(kSeed + 2);
    for (int round = 0; round < archiveCases(); ++round) {
        Data bytes = random.oneIn(2) ? archiveOf(random).second
                                     : KeyedArchiver::archivedDataWithRootObject(randomObject(random));
        if (bytes.size() > 20'000) continue;
        if (random.oneIn(2)) bytes = PeerList(bytes).rewritten();
        for (auto changes = random.below(6) + 1; changes > 0; --changes) {
            // The table and the trailer are the tender places.
            const auto near = std::min<std::uint64_t>(bytes.size(), random.oneIn(2) ? 64 : bytes.size());
            bytes[bytes.size() - 1 - random.below(near)] = static_cast<std::uint8_t>(random.below(256));
        }
        const auto root = unarchived(bytes);
        if (root) static_cast<void>(KeyedArchiver::archivedDataWithRootObject(*root));
        static_cast<void>(archiveAsJSON(bytes));
        if (auto file = KeyedArchiveFile::open(bytes)) static_cast<void>(file->extract(file->object(1)));
    }
}

}  // namespace
}  // namespace dayward

#include <cmath>
#include <limits>

#include "platform/ArchiveFixture.h"
#include "platform/Color.h"

namespace dayward {
namespace {

Object roundTrip(const Object& value) { return rootOf(KeyedArchiver::archivedDataWithRootObject(value)); }

Array manyValues(int count) {
    Array values;
    for (int i = 0; i < count; ++i) values.emplace_back("value " + std::to_string(i));
    return values;
}

TEST(KeyedArchive, returnsEveryValueAsItWas) {
    const double infinity = std::numeric_limits<double>::infinity();
    const std::vector<Object> values{
        nullptr,
        true,
        false,
        0,
        255,
        256,
        65536,
        -1,
        std::numeric_limits<std::int64_t>::max(),
        std::numeric_limits<std::int64_t>::min(),
        0.1,
        -0.0,
        infinity,
        5e-324,
        "",
        "plain",
        "$null",
        "é",
        "日本 🎂",
        std::string("a\0b", 3),
        std::string(70000, 'x'),
        Data(),
        Data(300, 7),
        Date::sinceReference(-1e9 + 0.125),
        Array(),
        Dictionary(),
        Array{1, nullptr, Array{nullptr}},
        manyValues(300),
        manyValues(70000),
        Array(1000, std::string(20000, 'x')),
        Dictionary{{"", 1}, {"$class", "text"}, {"ключ", Array{1, 1.5}}, {"null", nullptr}}};
    for (const Object& value : values) {
        const Object read = roundTrip(value);
        EXPECT_TRUE(read == value);
        EXPECT_EQ(read.value().index(), value.value().index()) << "kept its type";
    }
    EXPECT_TRUE(std::signbit(*roundTrip(-0.0).number()));
    EXPECT_TRUE(std::isnan(*roundTrip(std::nan("")).number()));
}

TEST(KeyedArchive, replacesTextThatIsNoUTF8) { EXPECT_EQ(roundTrip("a\xC3(\xFFz").stringValue(), "a\uFFFD(\uFFFDz"); }

/// Makes a new record whenever it is asked, as a wrapper of a plain value does.
class Wrapping final : public Archivable {
public:
    [[nodiscard]] std::vector<std::string> archiveClassNames() const override { return {"tst002"}; }
    void encodeWithCoder(KeyedArchiver& coder) const override {
        coder.encodeObject(colorObject(Color{1, 0, 0, 1}), "first");
        coder.encodeObject(colorObject(Color{0, 0, 1, 0.5}), "second");
    }
};

TEST(KeyedArchive, keepsRecordsApartThatLivedAtTheSameAddress) {
    ArchiveClasses classes;
    registerColorClass(classes);
    std::optional<Color> first;
    std::optional<Color> second;
    classes.add("tst002", [&](KeyedUnarchiver& coder) -> std::shared_ptr<Archivable> {
        first = colorOf(coder.decodeObject("first"));
        second = colorOf(coder.decodeObject("second"));
        return nullptr;
    });
    const Data data = KeyedArchiver::archivedDataWithRootObject(std::make_shared<Wrapping>());
    const auto root = KeyedUnarchiver::unarchiveObjectWithData(data, classes);
    ASSERT_TRUE(root);
    EXPECT_TRUE(root->isNull()) << "what a reader refuses is nothing";
    EXPECT_EQ(first, (Color{1, 0, 0, 1}));
    EXPECT_EQ(second, (Color{0, 0, 1, 0.5}));
}

TEST(KeyedArchive, writesACircleOnceAndReadsItAsAbsent) {
    const auto parent = std::make_shared<TestRecord>();
    const auto child = std::make_shared<TestRecord>();
    child->text = "child";
    parent->child = child;
    child->child = parent;
    const Data data = KeyedArchiver::archivedDataWithRootObject(parent);
    child->child = nullptr;
    const auto read = rootOf(data).as<TestRecord>();
    ASSERT_TRUE(read && read->child);
    const auto readChild = std::dynamic_pointer_cast<TestRecord>(read->child);
    EXPECT_EQ(readChild->text, "child");
    EXPECT_FALSE(readChild->child);
}

TEST(KeyedArchive, entriesStandBesideEachOther) {
    const auto read = [](const Data& data, std::vector<Object>& entries) {
        return KeyedUnarchiver::unarchiveContents(data, testClasses(), [&](KeyedUnarchiver& coder) {
            entries = {coder.decodeObject("object"), coder.decodeInteger("x"), coder.decodeObject("$y"),
                       coder.containsValue("z")};
        });
    };
    const Data data = KeyedArchiver::archivedDataWithContents([](KeyedArchiver& coder) {
        coder.encodeObject("text", "object");
        coder.encodeInteger(17, "x");
        coder.encodeObject(2.5, "$y");
    });
    std::vector<Object> entries;
    ASSERT_TRUE(read(data, entries));
    EXPECT_EQ(entries, (std::vector<Object>{"text", 17, 2.5, false}));
    ASSERT_TRUE(read(storedArchive("good-two-entries.plist"), entries));
    EXPECT_EQ(entries, (std::vector<Object>{"text", 17, nullptr, false}));
    EXPECT_FALSE(unarchived(data)) << "there is no root";
}

TEST(KeyedArchive, readsOldNamesOfAClass) {
    ArchiveClasses classes;
    classes.add("new name", TestRecord::read);
    classes.addAlias("tst001", "new name");
    const auto root = KeyedUnarchiver::unarchiveObjectWithData(storedArchive("good-record.plist"), classes);
    ASSERT_TRUE(root);
    EXPECT_TRUE(root->as<TestRecord>());
}

TEST(KeyedArchive, readsMutableClassesAndXML) {
    const Dictionary expected{{"integer", 7},
                              {"negative", -12},
                              {"large", std::numeric_limits<std::int64_t>::max()},
                              {"real", 0.1},
                              {"true", true},
                              {"text", "changing"},
                              {"wide", "Grüße, 日本 🎂"},
                              {"date", Date::sinceReference(536457600.5)},
                              {"data", Data{0, 1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 15, 16, 17, 18, 19}},
                              {"list", Array{7, 0.1, nullptr, "Grüße, 日本 🎂"}},
                              {"null", nullptr},
                              {"bytes", Data{0, 1, 255}}};
    EXPECT_TRUE(rootOf(storedArchive("good-values.plist")) == Object(expected));
    EXPECT_TRUE(rootOf(storedArchive("good-values.xml")) == Object(expected));
}

TEST(KeyedArchive, readsNumbersAsEachOtherInAnyOrderOfObjects) {
    for (const char* name : {"good-record.plist", "good-record-reversed.plist"}) {
        const auto record = rootOf(storedArchive(name)).as<TestRecord>();
        ASSERT_TRUE(record) << name;
        EXPECT_EQ(record->text, "a record");
        EXPECT_EQ(record->count, 3) << "a real, truncated";
        EXPECT_EQ(record->flag, true) << "the number 1";
        EXPECT_EQ(record->ratio, 2.0) << "an integer";
        const Array& list = *record->list.array();
        ASSERT_EQ(list.size(), 4U);
        EXPECT_EQ(list[0].record(), record->child);
        EXPECT_EQ(list[1].record(), record->child);
        EXPECT_TRUE(list[2].isNull()) << "the record that is being read";
        EXPECT_EQ(list[3].stringValue(), "the child");
        EXPECT_FALSE(std::dynamic_pointer_cast<TestRecord>(record->child)->child);
    }
}

TEST(KeyedArchive, mistypedAndMissingKeysAreNothing) {
    using Read = std::function<bool(KeyedUnarchiver&, const char*)>;
    struct Case {
        const char* name;
        Read read;
        std::string keysThatRead;  ///< of the keys below
    };
    const std::vector<Case> cases{
        {"integer", [](auto& coder, auto* key) { return coder.decodeInteger(key).has_value(); }, "inlb"},
        {"boolean", [](auto& coder, auto* key) { return coder.decodeBool(key).has_value(); }, "inlb"},
        {"double", [](auto& coder, auto* key) { return coder.decodeDouble(key).has_value(); }, "inlb"},
        {"string", [](auto& coder, auto* key) { return coder.decodeString(key).has_value(); }, "s"},
        {"date", [](auto& coder, auto* key) { return coder.decodeDate(key).has_value(); }, "d"},
        {"data", [](auto& coder, auto* key) { return coder.decodeData(key).has_value(); }, "x"},
        {"record", [](auto& coder, auto* key) { return coder.template decodeRecord<TestRecord>(key) != nullptr; }, "r"},
        {"object", [](auto& coder, auto* key) { return !coder.decodeObject(key).isNull(); }, "inlbsdxra"},
        {"contains", [](auto& coder, auto* key) { return coder.containsValue(key); }, "inlbsdxra0"},
    };
    const Data data = KeyedArchiver::archivedDataWithContents([](KeyedArchiver& coder) {
        coder.encodeInteger(1, "i");
        coder.encodeObject(2, "n");
        coder.encodeDouble(2.5, "l");
        coder.encodeBool(false, "b");
        coder.encodeObject("12", "s");
        coder.encodeObject(Date(), "d");
        coder.encodeObject(Data{1}, "x");
        coder.encodeObject(std::make_shared<TestRecord>(), "r");
        coder.encodeObject(Array{1}, "a");
        coder.encodeObject(nullptr, "0");
    });
    for (const Case& each : cases) {
        std::string keysThatRead;
        const auto result = KeyedUnarchiver::unarchiveContents(data, testClasses(), [&](KeyedUnarchiver& coder) {
            for (const char* key : {"i", "n", "l", "b", "s", "d", "x", "r", "a", "0", "missing"}) {
                if (each.read(coder, key)) keysThatRead += key;
            }
        });
        EXPECT_TRUE(result);
        EXPECT_EQ(keysThatRead, each.keysThatRead) << each.name;
    }
}

/// The platform object of that class that has one value.
Object platformObject(const char* className, const char* key, PropertyList value) {
    const PropertyList object{Fields{{key, std::move(value)}, {"$class", {ArchiveUID{2}}}}};
    return rootOf(archiveOfObjects({object, classRecord(className)}));
}

TEST(KeyedArchive, bytesOfATextAreUTF8AndLargeNumbersKeepTheirSign) {
    EXPECT_EQ(platformObject("NSMutableString", "NS.bytes", {dataOf("é\xFF.")}).stringValue(), "é\uFFFD.");
    const Object large = platformObject("NSArray", "NS.objects", {PropertyList::List{{~std::uint64_t{0}}}});
    EXPECT_EQ(large, Object(Array{18446744073709551615.0}));
}

TEST(KeyedArchive, readsColoursInBothForms) {
    ArchiveClasses classes;
    registerColorClass(classes);
    const auto grey = KeyedUnarchiver::unarchiveObjectWithData(storedArchive("good-grey.plist"), classes);
    ASSERT_TRUE(grey);
    EXPECT_EQ(colorOf(*grey), (Color{0.25, 0.25, 0.25, 1}));
    const Color color{0.1, 0.2, 0.3, 0.4};
    const Data data = KeyedArchiver::archivedDataWithRootObject(colorObject(color));
    EXPECT_EQ(colorOf(*KeyedUnarchiver::unarchiveObjectWithData(data, classes)), color);
    EXPECT_EQ(colorOf("no colour"), std::nullopt);
}

TEST(Color, hexTextIsReadAndWritten) {
    EXPECT_EQ(Color::fromHex("#ff8000")->hex(), "#FF8000FF");
    EXPECT_EQ(Color::fromHex("#01020304")->hex(), "#01020304");
    EXPECT_EQ((Color{-1, 2, 0.5, std::nan("")}.hex()), "#00FF8000");
    for (const char* text : {"", "#", "ff8000", "#ff800", "#ff80001", "#gg8000", "#ff 800", "#-18000", "#ff8000ff0"}) {
        EXPECT_EQ(Color::fromHex(text), std::nullopt) << text;
    }
}

TEST(Object, numbersReadAsEachOther) {
    EXPECT_EQ(Object(-2.9).integer(), -2);
    EXPECT_EQ(Object(1e300).integer(), std::numeric_limits<std::int64_t>::max());
    EXPECT_EQ(Object(-1e300).integer(), std::numeric_limits<std::int64_t>::min());
    EXPECT_EQ(Object(std::nan("")).integer(), std::nullopt);
    EXPECT_EQ(Object("1").integer(), std::nullopt);
    EXPECT_EQ(Object(Date()).number(), std::nullopt);
    EXPECT_TRUE(Object(1) == Object(1.0) && Object(1.0) == Object(true));
    EXPECT_FALSE(Object(std::int64_t{9007199254740993}) == Object(std::int64_t{9007199254740992}));
    EXPECT_FALSE(Object(0) == Object());
    EXPECT_FALSE(Object("") == Object(Data()));
}

}  // namespace
}  // namespace dayward

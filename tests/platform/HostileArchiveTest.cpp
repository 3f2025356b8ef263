#include <random>

#include "platform/ArchiveDump.h"
#include "platform/ArchiveFixture.h"
#include "platform/Color.h"

namespace dayward {
namespace {

std::string reasonOf(const Result<Object>& result) {
    if (result) return "no error";
    EXPECT_EQ(result.error().domain, "keyed archive");
    return result.error().userInfo.at("reason");
}

TEST(HostileArchive, saysWhatIsWrong) {
    const std::vector<std::pair<const char*, const char*>> cases{
        {"bad-empty.plist", "empty"},
        {"bad-magic.plist", "no property list"},
        {"bad-text.plist", "broken XML"},
        {"bad-xml.xml", "broken XML"},
        {"bad-xml-nested.xml", "nested too deeply"},
        {"bad-trailer.plist", "outside the file"},
        {"bad-table.plist", "cut off"},
        {"bad-list.plist", "no dictionary"},
        {"bad-archiver.plist", "keyed archiver"},
        {"bad-no-archiver.plist", "keyed archiver"},
        {"bad-version.plist", "version"},
        {"bad-no-objects.plist", "$objects"},
        {"bad-objects-type.plist", "$objects"},
        {"bad-no-top.plist", "$top"},
        {"bad-no-root.plist", "no root"},
        {"bad-root-number.plist", "object 9,"},
        {"bad-element-number.plist", "object 1099511627776,"},
        {"bad-class-number.plist", "object 77 is no class"},
        {"bad-class-type.plist", "object 2 is no class"},
        {"bad-class-inline.plist", "object 1 has no class"},
        {"bad-no-class.plist", "object 1 has no class"},
        {"bad-counts.plist", "1 keys and 0 values"},
        {"bad-unknown-number.plist", "object 50 is missing"},
        {"bad-nested.plist", "nested too deeply"},
        {"bad-laughs.plist", "repeated too often"},
        {"bad-raw-laughs.plist", "no dictionary"},
        {"bad-raw-wide-array.plist", "repeated too often"},
        {"bad-raw-array-in-itself.plist", "nested too deeply"},
        {"bad-raw-huge-count.plist", "missing or damaged"},
        {"bad-raw-huge-text.plist", "missing or damaged"},
        {"bad-raw-wide-count.plist", "missing or damaged"},
        {"bad-raw-marker.plist", "missing or damaged"},
        {"bad-raw-uid-to-uid.plist", "a reference in the place of an object"},
    };
    for (const auto& [name, reason] : cases) {
        const Data data = storedArchive(name);
        EXPECT_THAT(reasonOf(unarchived(data)), testing::HasSubstr(reason)) << name;
        static_cast<void>(archiveAsJSON(data));
    }
}

TEST(HostileArchive, depthIsBoundedForWhatIsFollowedOnly) {
    EXPECT_TRUE(unarchived(storedArchive("good-nested.plist")));
    EXPECT_TRUE(unarchived(storedArchive("good-opaque-chain.plist")));
}

/// Reads every form of a damaged archive; what comes back does not matter, that something does, does.
void readAll(const Data& data) {
    ArchiveClasses classes = testClasses();
    registerColorClass(classes);
    const auto root = KeyedUnarchiver::unarchiveObjectWithData(data, classes);
    if (root) {
        const Data again = KeyedArchiver::archivedDataWithRootObject(*root);
        const auto reread = KeyedUnarchiver::unarchiveObjectWithData(again, classes);
        EXPECT_TRUE(reread) << "what was read can be written: " << reasonOf(reread);
    } else {
        EXPECT_FALSE(reasonOf(root).empty());
    }
    static_cast<void>(archiveAsJSON(data));
}

class DamagedArchive : public testing::TestWithParam<const char*> {};

TEST_P(DamagedArchive, survivesEveryTruncation) {
    const Data whole = storedArchive(GetParam());
    // The last bytes of XML say nothing that its reader waits for.
    const std::size_t needed = std::min(whole.size(), textOf(whole).rfind("</dict>"));
    for (std::size_t length = 0; length < needed; ++length) {
        const Data cut(whole.begin(), whole.begin() + static_cast<std::ptrdiff_t>(length));
        EXPECT_FALSE(unarchived(cut)) << length;
    }
}

TEST_P(DamagedArchive, survivesChangedBytes) {
    constexpr unsigned kSeed = 20260310;
    SCOPED_TRACE("seed " + std::to_string(kSeed));
    std::mt19937 random(kSeed);
    const Data whole = storedArchive(GetParam());
    for (int round = 0; round < 3000; ++round) {
        Data changed = whole;
        for (unsigned i = 0; i <= random() % 4; ++i)
            changed[random() % changed.size()] = static_cast<std::uint8_t>(random());
        readAll(changed);
    }
}

INSTANTIATE_TEST_SUITE_P(Stored, DamagedArchive,
                         testing::Values("good-values.plist", "good-values.xml", "good-record.plist",
                                         "good-unknown.plist", "good-number-keys.plist", "good-grey.plist"));

/// An archive of an array that holds one text many times.
Data repeatedText(std::size_t length, std::size_t count) {
    PropertyList::List elements(count, PropertyList{ArchiveUID{2}});
    const std::string text(length, 'x');
    const PropertyList array{Fields{{"NS.objects", {std::move(elements)}}, {"$class", {ArchiveUID{3}}}}};
    return archiveOfObjects({array, {text}, classRecord("NSArray")});
}

/// An archive of objects that hold each other in the place of their one value.
Data chain(const char* className, const char* key) {
    constexpr std::uint64_t kCount = 20000;
    PropertyList::List objects;
    for (std::uint64_t next = 2; next <= kCount; ++next)
        objects.push_back({Fields{{key, {ArchiveUID{next}}}, {"$class", {ArchiveUID{kCount}}}}});
    objects.push_back(classRecord(className));
    return archiveOfObjects(std::move(objects));
}

TEST(HostileArchive, chainsOfPlatformObjectsAreFollowedToABound) {
    const std::pair<const char*, const char*> values[] = {
        {"NSString", "NS.string"}, {"NSArray", "NS.objects"}, {"NSData", "NS.data"}, {"NSDate", "NS.time"}};
    for (const auto& [className, key] : values) {
        const Data archive = chain(className, key);
        static_cast<void>(unarchived(archive));
        const auto json = archiveAsJSON(archive);
        ASSERT_FALSE(json) << className;
        EXPECT_EQ(json.error().userInfo.at("reason"), "nested too deeply") << className;
    }
}

TEST(HostileArchive, sharedTextIsPaidForEachTime) {
    EXPECT_EQ(rootOf(repeatedText(1000, 1000)).array()->size(), 1000U);
    EXPECT_THAT(reasonOf(unarchived(repeatedText(1 << 16, 1 << 14))), testing::HasSubstr("repeated too often"));
}

}  // namespace
}  // namespace dayward

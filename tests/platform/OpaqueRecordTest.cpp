#include "platform/ArchiveFixture.h"

namespace dayward {
namespace {

Object rewritten(const Object& root) { return rootOf(KeyedArchiver::archivedDataWithRootObject(root)); }

TEST(OpaqueRecord, keepsWhatItReachesAndWhatItShares) {
    Object root = rootOf(storedArchive("good-unknown.plist"));
    for (int round = 0; round < 3; ++round, root = rewritten(root)) {
        ASSERT_TRUE(root.array());
        const Array& list = *root.array();
        ASSERT_EQ(list.size(), 4U);
        ASSERT_TRUE(list[0].record() && list[1].record());
        EXPECT_EQ(list[0].record()->archiveClassNames(), (std::vector<std::string>{"XYPoint", "XYShape"}));
        EXPECT_EQ(list[0].record(), list[3].record());
        EXPECT_FALSE(list[0].record() == list[1].record());
        const auto known = list[2].as<TestRecord>();
        ASSERT_TRUE(known);
        EXPECT_EQ(known->text, "shared text");
        EXPECT_TRUE(known->child) << "of an unknown class";
    }
}

TEST(OpaqueRecord, writesTheSameBytesEachTime) {
    const Data first = KeyedArchiver::archivedDataWithRootObject(rootOf(storedArchive("good-unknown.plist")));
    const Data second = KeyedArchiver::archivedDataWithRootObject(rootOf(first));
    EXPECT_EQ(first.size(), second.size()) << "nothing is lost or doubled";
    EXPECT_EQ(second, KeyedArchiver::archivedDataWithRootObject(rootOf(second)));
}

TEST(OpaqueRecord, recordsOfTwoArchivesGoIntoOne) {
    const Object points = rootOf(storedArchive("good-unknown.plist"));
    const Object chain = rootOf(storedArchive("good-opaque-chain.plist"));
    const Object read = rewritten(Dictionary{{"points", points}, {"chain", chain}});
    EXPECT_TRUE(read.dictionary()->at("chain") == chain);
    EXPECT_FALSE(points.array()->at(0) == points.array()->at(1));
    EXPECT_TRUE(read.dictionary()->at("points").array()->at(1) == points.array()->at(1));
}

TEST(OpaqueRecord, aDictionaryWithOtherKeysThanStringsIsOne) {
    const Object root = rootOf(storedArchive("good-number-keys.plist"));
    ASSERT_TRUE(root.record());
    EXPECT_EQ(root.record()->archiveClassNames(), (std::vector<std::string>{"NSDictionary"}));
    EXPECT_TRUE(rewritten(root) == root);
}

}  // namespace
}  // namespace dayward

#include "sync/CCSyncItemVersion.h"

#include <gtest/gtest.h>

#include <bit>
#include <limits>

#include "platform/KeyedArchiver.h"
#include "platform/KeyedUnarchiver.h"
#include "support/TestEnvironment.h"

namespace dayward {
namespace {

TEST(CCSyncItemVersion, NextIsTheClockAndNotACounter) {
    TestEnvironment environment;
    environment.clock->set(Date::since1970(1795221234.25));
    const auto first = CCSyncItemVersion::next();
    EXPECT_EQ(first.timeInterval().seconds(), 1795221234.25);
    EXPECT_EQ(first, CCSyncItemVersion::next());
    environment.clock->advance(TimeInterval(0.5));
    EXPECT_LT(first, CCSyncItemVersion::next());
    EXPECT_EQ(first.date(), Date::since1970(1795221234.25));
}

TEST(CCSyncItemVersion, OrdersByTheNumberAlone) {
    const CCSyncItemVersion older(TimeInterval(10));
    const CCSyncItemVersion newer(TimeInterval(std::nextafter(10.0, 11.0)));
    const CCSyncItemVersion none(TimeInterval(std::numeric_limits<double>::quiet_NaN()));
    EXPECT_TRUE(newer > older);
    EXPECT_TRUE(older < newer);
    EXPECT_FALSE(older < older || older > older);
    EXPECT_TRUE(CCSyncItemVersion::zero() < older);
    EXPECT_FALSE(none < older || none > older || none == none);
}

class VersionArchive : public testing::TestWithParam<double> {};

TEST_P(VersionArchive, KeepsTheDoubleBitForBit) {
    ArchiveClasses classes;
    registerSyncClasses(classes);
    const auto version = std::make_shared<CCSyncItemVersion>(TimeInterval(GetParam()));
    const Data archive = KeyedArchiver::archivedDataWithRootObject(version);
    const auto root = KeyedUnarchiver::unarchiveObjectWithData(archive, classes);
    ASSERT_TRUE(root);
    const auto read = root->as<CCSyncItemVersion>();
    ASSERT_TRUE(read);
    EXPECT_EQ(std::bit_cast<std::uint64_t>(read->timeInterval().seconds()), std::bit_cast<std::uint64_t>(GetParam()));
    EXPECT_TRUE(read->isEqual(*version));
}

INSTANTIATE_TEST_SUITE_P(Numbers, VersionArchive, testing::Values(0.0, -0.0, 1795221234.25, 0.1, 1e300, 5e-324, -1.0));

}  // namespace
}  // namespace dayward

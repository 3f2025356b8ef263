#include "resources/HHResources.h"

#include <gmock/gmock.h>

#include "resources/FontLook.h"
#include "resources/Gallery.h"
#include "resources/ImageCache.h"
#include "support/TestEnvironment.h"
#include "support/TestPaths.h"

namespace dayward {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;

TestEnvironment::Options withResources(const std::string& resources) {
    TestEnvironment::Options options;
    options.resources = resources;
    return options;
}

TEST(HHResources, CataloguesLeaveOutWhatHasNoFile) {
    TestEnvironment environment(withResources(testData() + "/resources"));
    EXPECT_THAT(HHResources::icons(), ElementsAre("heart4.png", "remind.png"));
    EXPECT_THAT(HHResources::backgrounds(), ElementsAre("bg-37.jpg", "bg-38.jpg"));
    EXPECT_THAT(environment.log->errors(), ElementsAre(HasSubstr("not icon file: "), HasSubstr("not icon file: "),
                                                       HasSubstr("not background file: ")));
}

TEST(HHResources, MissingAndBrokenCataloguesGiveWhatTheyCan) {
    {
        TestEnvironment environment(withResources(testData() + "/documents"));
        EXPECT_TRUE(HHResources::icons().empty());
        EXPECT_TRUE(HHResources::backgrounds().empty());
        EXPECT_TRUE(HHResources::fonts().empty());
        EXPECT_TRUE(Gallery::icons().empty());
    }
    TestEnvironment environment(withResources(testData() + "/resources"));
    EXPECT_THAT(HHResources::fonts(), ElementsAre("Futura-Medium", "Georgia"));
    EXPECT_EQ(FontLook::named("Georgia")->weight, 400);
    ASSERT_EQ(Gallery::icons().size(), 1U);
    ASSERT_EQ(Gallery::icons()[0].items.size(), 1U);
    EXPECT_EQ(Gallery::icons()[0].items[0].title(), "Heart");
}

TEST(HHResources, WebColors) {
    const auto colors = HHResources::colors();
    ASSERT_EQ(colors.size(), 64U);
    EXPECT_EQ(colors[0], Color::black());
    EXPECT_EQ(colors[1], (Color{0, 0, 1.0 / 3, 1}));
    EXPECT_EQ(colors[4], (Color{0, 1.0 / 3, 0, 1}));
    EXPECT_EQ(colors[16], (Color{1.0 / 3, 0, 0, 1}));
    EXPECT_EQ(colors[63], Color::white());
    EXPECT_TRUE(HHResources::webColorsWithPairs(0).empty());
    EXPECT_TRUE(HHResources::webColorsWithPairs(-1).empty());
    EXPECT_THAT(HHResources::webColorsWithPairs(1), ElementsAre(Color::black()));
}

TEST(HHResources, FixedCatalogues) {
    ASSERT_EQ(HHResources::baseColors().size(), 16U);
    EXPECT_EQ(HHResources::baseColors()[5].hex(), "#800000FF");
}

TEST(HHResources, AnImageIsDecodedOnce) {
    TestEnvironment environment(withResources(testData() + "/resources"));
    EXPECT_EQ(HHResources::image("heart4.png"), HHResources::image("heart4.png"));
    EXPECT_EQ(HHResources::image("bg-37.jpg")->width(), 4);
}

TEST(ImageCache, DropsWhatWasUsedLongestAgo) {
    const auto image = [] { return std::make_shared<const Image>(1, 1, Data(4)); };
    ImageCache cache(8);
    cache.setImage(image(), "a");
    cache.setImage(image(), "b");
    EXPECT_TRUE(cache.image("a"));
    cache.setImage(image(), "c");
    EXPECT_TRUE(cache.image("a") && cache.image("c"));
    EXPECT_FALSE(cache.image("b"));
    cache.setImage(image(), "c");
    EXPECT_TRUE(cache.image("a"));
    cache.setImage(std::make_shared<const Image>(3, 1, Data(12)), "a");
    EXPECT_FALSE(cache.image("a"));
    EXPECT_TRUE(cache.image("c"));
    cache.removeImage("c");
    EXPECT_FALSE(cache.image("c"));
}

}  // namespace
}  // namespace dayward

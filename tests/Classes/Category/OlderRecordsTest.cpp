#include <set>

#include "Classes/Category/ColorEventBackgroundPicture.h"
#include "Classes/Category/EventCategory.h"
#include "Classes/Category/HHAppImage.h"
#include "Classes/Category/HHBackground.h"
#include "Classes/Category/HHBackgroundInfo.h"
#include "Classes/Category/ImageEventBackgroundPicture.h"
#include "Classes/Category/ImageEventBackgroundTemplate.h"
#include "Classes/Category/ImageEventIconPicture.h"
#include "Classes/Category/NamedEventBackgroundPicture.h"
#include "Classes/Category/NamedEventBackgroundTemplate.h"
#include "Classes/Category/NamedEventIconPicture.h"
#include "Classes/Category/PictureTestSupport.h"
#include "Classes/Category/RColorEventBackgroundTemplate.h"
#include "Classes/Category/RNamedEventBackgroundTemplate.h"
#include "support/TestPaths.h"

namespace dayward {
namespace {

class OlderRecordsTest : public testing::Test {
protected:
    TestEnvironment environment_{pictureOptions()};
};

TEST_F(OlderRecordsTest, CategoryReadsEveryKey) {
    const auto category = readStored<EventCategory>("category-full");
    ASSERT_TRUE(category);
    EXPECT_EQ(category->key, "key-1");
    EXPECT_EQ(category->name, "Trips");
    const auto icon = std::dynamic_pointer_cast<ImageEventIconPicture>(category->eventIcon);
    ASSERT_TRUE(icon);
    EXPECT_EQ(icon->source(), "me.png");
    EXPECT_EQ(icon->getImage()->rgba(), (Data{255, 0, 0, 255}));
    EXPECT_TRUE(std::dynamic_pointer_cast<ImageEventBackgroundTemplate>(category->eventBackgroundTpl));
    EXPECT_EQ(category->eventFont, "Papyrus");
    EXPECT_EQ(category->eventTextColor, (Color{0.5, 0.25, 1, 1}));

    const auto back = rewritten(category);
    EXPECT_EQ(back->name, category->name);
    EXPECT_TRUE(back->eventIcon->isEqual(*category->eventIcon));
    EXPECT_TRUE(back->eventBackgroundTpl->isEqual(*category->eventBackgroundTpl));
    EXPECT_EQ(back->eventFont, category->eventFont);
    EXPECT_EQ(back->eventTextColor, category->eventTextColor);
}

TEST_F(OlderRecordsTest, CategoriesAreEqualByKeyAlone) {
    EventCategory category("k");
    EventCategory other("k");
    other.name = "other";
    EXPECT_TRUE(category.isEqual(other));
    EXPECT_FALSE(category.isEqual(EventCategory()));
    EXPECT_NE(EventCategory().key, EventCategory().key);
}

TEST_F(OlderRecordsTest, CategoryPicturesOfOldVersions) {
    EXPECT_TRUE(std::dynamic_pointer_cast<RColorEventBackgroundTemplate>(
        readStored<EventCategory>("category-chronello-color")->eventBackgroundTpl));
    EXPECT_TRUE(std::dynamic_pointer_cast<RNamedEventBackgroundTemplate>(
        readStored<EventCategory>("category-chronelle-named")->eventBackgroundTpl));
    EXPECT_TRUE(
        NamedEventIconPicture("heart4.png").isEqual(*readStored<EventCategory>("category-older-icon")->eventIcon));
    EXPECT_TRUE(NamedEventBackgroundTemplate("bg-37.jpg")
                    .isEqual(*readStored<EventCategory>("category-older-background")->eventBackgroundTpl));
    const auto info = readStored<EventCategory>("category-older-info")->eventBackgroundTpl;
    ASSERT_TRUE(std::dynamic_pointer_cast<HHBackgroundInfo>(info));
    EXPECT_EQ(info->getPicture()->getImage()->rgba(), (Data{255, 0, 0, 255}));
    EXPECT_TRUE(rewritten(info)->isEqual(*info));
}

TEST_F(OlderRecordsTest, MistypedCategoryKeysCountAsAbsent) {
    for (const char* name : {"category-mistyped", "category-broken-image"}) {
        const auto category = readStored<EventCategory>(name);
        ASSERT_TRUE(category) << name;
        EXPECT_EQ(category->key, "k");
        EXPECT_FALSE(category->name || category->eventIcon || category->eventBackgroundTpl || category->eventFont ||
                     category->eventTextColor)
            << name;
    }
}

TEST_F(OlderRecordsTest, AppImageTakesTheFirstImageThatThereIs) {
    const auto fromData = readStored<HHAppImage>("app-image-data");
    ASSERT_TRUE(fromData && fromData->image());
    EXPECT_FALSE(fromData->source());
    EXPECT_TRUE(std::dynamic_pointer_cast<ImageEventIconPicture>(fromData->updatedPicture()));
    EXPECT_TRUE(rewritten(fromData)->isEqual(*fromData));

    const auto fromObject = readStored<HHAppImage>("app-image-object");
    ASSERT_TRUE(fromObject && fromObject->image());
    EXPECT_TRUE(fromObject->isEqual(*fromData));

    const auto named = HHAppImage::named("heart4.png");
    EXPECT_EQ(named->getImage()->width(), 2);
    EXPECT_TRUE(NamedEventIconPicture("heart4.png").isEqual(*named->updatedPicture()));
    EXPECT_EQ(HHAppImage::contentsOfFile(testData() + "/resources/heart4.png")->source(), "heart4.png");
    const auto nothing = HHAppImage::withData(dataOf("none"));
    EXPECT_TRUE(nothing->getImage()->isEmpty());
    EXPECT_FALSE(nothing->updatedPicture());
}

TEST_F(OlderRecordsTest, BackgroundReadsBothFormats) {
    const auto color = readStored<HHBackground>("background-color");
    EXPECT_EQ(color->color(), (Color{0, 0, 1, 1}));
    EXPECT_EQ(color->imageSource(), "x.jpg");
    EXPECT_TRUE(color->image());
    EXPECT_TRUE(rewritten(color)->isEqual(*color));
    EXPECT_FALSE(readStored<HHBackground>("background-image")->imageSource());
}

TEST_F(OlderRecordsTest, BackgroundInfoByType) {
    const Color blue{0, 0, 1, 1};
    struct Case {
        int type;
        bool withValues;
        bool isRandom;
        const char* gives;  ///< "named", "color", "image", or "any named", "any color"
    };
    for (const auto& [type, withValues, isRandom, gives] : {
             Case{0, true, false, "named"},
             {0, false, false, "any named"},
             {1, true, true, "any named"},
             {2, true, false, "color"},
             {2, false, false, "any color"},
             {3, true, true, "any color"},
             {4, true, false, "image"},
             {5, true, false, "named"},
             {9, false, false, "any named"},
             {-3, true, false, "named"},
         }) {
        const HHBackgroundInfo info(type, withValues ? std::optional<std::string>("mine") : std::nullopt,
                                    withValues ? std::optional(blue) : std::nullopt,
                                    withValues ? testImage() : nullptr);
        EXPECT_EQ(info.isRandom(), isRandom) << type;
        const auto picture = info.getPicture();
        const auto named = std::dynamic_pointer_cast<NamedEventBackgroundPicture>(picture);
        const auto color = std::dynamic_pointer_cast<ColorEventBackgroundPicture>(picture);
        std::string kind = named ? "any named" : color ? "any color" : "image";
        if (named && named->named() == "mine") kind = "named";
        if (color && std::string(gives) == "color" && color->color() == blue) kind = "color";
        EXPECT_EQ(kind, gives) << type;
    }
}

TEST_F(OlderRecordsTest, AColorInfoWithoutColorPicksAtEachCall) {
    const HHBackgroundInfo info(2, {}, {}, nullptr);
    std::set<std::string> colors;
    for (int draw = 0; draw < 200; ++draw) {
        colors.insert(std::dynamic_pointer_cast<ColorPicture>(info.getPicture())->color().hex());
    }
    EXPECT_GT(colors.size(), 1U);
}

TEST_F(OlderRecordsTest, AnImageInfoWithoutImageStopsTheProcess) {
    EXPECT_DEATH((void)HHBackgroundInfo(4, "n", {}, nullptr).getPicture(), "without an image");
}

}  // namespace
}  // namespace dayward

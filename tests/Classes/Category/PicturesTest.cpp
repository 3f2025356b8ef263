#include <gmock/gmock.h>

#include <set>

#include "Classes/Category/BackgroundTemplateConversion.h"
#include "Classes/Category/ColorEventBackgroundPicture.h"
#include "Classes/Category/ColorEventBackgroundTemplate.h"
#include "Classes/Category/HHAppImage.h"
#include "Classes/Category/HHBackground.h"
#include "Classes/Category/ImageEventBackgroundPicture.h"
#include "Classes/Category/ImageEventBackgroundTemplate.h"
#include "Classes/Category/ImageEventIconPicture.h"
#include "Classes/Category/NamedEventBackgroundPicture.h"
#include "Classes/Category/NamedEventBackgroundTemplate.h"
#include "Classes/Category/NamedEventIconPicture.h"
#include "Classes/Category/PictureTestSupport.h"
#include "Classes/Category/RColorEventBackgroundTemplate.h"
#include "Classes/Category/RNamedEventBackgroundTemplate.h"
#include "platform/ArchiveDump.h"
#include "resources/HHResources.h"

namespace dayward {
namespace {

using testing::HasSubstr;

class PicturesTest : public testing::Test {
protected:
    TestEnvironment environment_{pictureOptions()};
    const Color red_{1, 0, 0, 0.5};
};

TEST_F(PicturesTest, EveryKindComesBackFromItsArchive) {
    const std::vector<std::pair<const char*, std::shared_ptr<Archivable>>> pictures = {
        {"c002", std::make_shared<NamedEventIconPicture>("heart4.png")},
        {"c003", std::make_shared<ImageEventIconPicture>(testImage(), "me.png")},
        {"c004", std::make_shared<NamedEventBackgroundPicture>("bg-37.jpg")},
        {"c006", std::make_shared<ColorEventBackgroundPicture>(red_)},
        {"c007", std::make_shared<NamedEventBackgroundTemplate>("bg-37.jpg")},
        {"c009", std::make_shared<ColorEventBackgroundTemplate>(red_)},
        {"c011", std::make_shared<RNamedEventBackgroundTemplate>()},
        {"c012", std::make_shared<RColorEventBackgroundTemplate>()},
    };
    for (const auto& [code, picture] : pictures) {
        EXPECT_EQ(picture->archiveClassNames().front(), code);
        const auto back = rewritten(picture);
        ASSERT_TRUE(back) << code;
        EXPECT_TRUE(back->isEqual(*picture)) << code;
        for (const auto& [otherCode, other] : pictures) {
            EXPECT_EQ(picture->isEqual(*other), picture == other) << code << " and " << otherCode;
        }
    }
}

TEST_F(PicturesTest, EqualityCountsEveryField) {
    const NamedEventBackgroundPicture named("a");
    EXPECT_TRUE(named.isEqual(NamedEventBackgroundPicture("a")));
    EXPECT_FALSE(named.isEqual(NamedEventBackgroundPicture("b")));
    EXPECT_FALSE(named.isEqual(NamedEventBackgroundTemplate("a")));
    EXPECT_FALSE(ColorEventBackgroundPicture(red_).isEqual(ColorEventBackgroundPicture({1, 0, 0, 1})));
    const ImageEventIconPicture image(testImage(), "s");
    EXPECT_TRUE(image.isEqual(ImageEventIconPicture(testImage(), "s")));
    EXPECT_FALSE(image.isEqual(ImageEventIconPicture(testImage(), std::nullopt)));
    EXPECT_FALSE(image.isEqual(ImageEventIconPicture(testImage(10), "s")));
}

TEST_F(PicturesTest, AJpegIsNotEncodedAgain) {
    const auto first = rewritten(std::make_shared<ImageEventBackgroundPicture>(testImage(), "s"));
    ASSERT_TRUE(first);
    EXPECT_EQ(first->source(), "s");
    const auto second = rewritten(first);
    EXPECT_EQ(*first->encodedData(), *second->encodedData());
    EXPECT_TRUE(first->isEqual(*second));
}

TEST_F(PicturesTest, RandomTemplatesWriteNothingButTheirClass) {
    const auto text =
        *archiveAsJSON(KeyedArchiver::archivedDataWithRootObject(std::make_shared<RColorEventBackgroundTemplate>()));
    EXPECT_THAT(text, HasSubstr("c012"));
    EXPECT_EQ(text.find("p0"), std::string::npos) << text;
}

TEST_F(PicturesTest, NamesThatLeadNowhereGiveTheEmptyImage) {
    EXPECT_EQ(NamedEventIconPicture("heart4.png").getImage()->width(), 2);
    EXPECT_EQ(NamedEventIconPicture("heart4").getImage()->height(), 3);
    for (const char* name : {"", "gone.png", "/heart4.png", "../resources/heart4.png", "iconData.json", "."}) {
        EXPECT_TRUE(NamedEventIconPicture(name).getImage()->isEmpty()) << name;
    }
}

TEST_F(PicturesTest, ViewsFillAndClip) {
    const auto view = ColorEventBackgroundPicture(red_).getImageView();
    EXPECT_EQ(view.contentMode, 2);
    EXPECT_TRUE(view.clipsToBounds);
    EXPECT_EQ(view.image->rgba(), (Data{255, 0, 0, 128}));
    EXPECT_EQ(RNamedEventBackgroundTemplate().getPreviewView().image->width(), 3);
    EXPECT_EQ(RColorEventBackgroundTemplate().getPreviewView().image->width(), 4);
}

TEST_F(PicturesTest, TemplatesGiveTheirPicture) {
    const auto isTheSame = [](const EventBackgroundTemplate& given, const Archivable& picture) {
        return !given.isRandom() && given.getPicture()->isEqual(picture);
    };
    EXPECT_TRUE(isTheSame(NamedEventBackgroundTemplate("n"), NamedEventBackgroundPicture("n")));
    EXPECT_TRUE(isTheSame(ColorEventBackgroundTemplate(red_), ColorEventBackgroundPicture(red_)));
    EXPECT_TRUE(
        isTheSame(ImageEventBackgroundTemplate(testImage(), "s"), ImageEventBackgroundPicture(testImage(), "s")));
}

TEST_F(PicturesTest, RandomTemplatesReachTheirWholeCatalogue) {
    ASSERT_EQ(HHResources::backgrounds().size(), 2U);
    std::set<std::string> names;
    std::set<std::string> colors;
    EXPECT_TRUE(RNamedEventBackgroundTemplate().isRandom() && RColorEventBackgroundTemplate().isRandom());
    // Missing one of 64 colours in 4000 draws has a chance below 1e-25.
    for (int draw = 0; draw < 4000; ++draw) {
        names.insert(std::dynamic_pointer_cast<NamedPicture>(RNamedEventBackgroundTemplate().getPicture())->named());
        colors.insert(
            std::dynamic_pointer_cast<ColorPicture>(RColorEventBackgroundTemplate().getPicture())->color().hex());
    }
    EXPECT_EQ(names.size(), 2U);
    EXPECT_EQ(colors.size(), HHResources::colors().size());
}

TEST_F(PicturesTest, OldBackgroundsBecomeTemplates) {
    const auto image = testImage();
    const std::optional<std::string> none;
    const std::vector<std::pair<Object, std::shared_ptr<Archivable>>> conversions = {
        {std::make_shared<RColorEventBackgroundTemplate>(), std::make_shared<RColorEventBackgroundTemplate>()},
        {std::make_shared<NamedEventBackgroundPicture>("n"), std::make_shared<NamedEventBackgroundTemplate>("n")},
        {std::make_shared<ColorEventBackgroundPicture>(red_), std::make_shared<ColorEventBackgroundTemplate>(red_)},
        {std::make_shared<ImageEventBackgroundPicture>(image, "s"),
         std::make_shared<ImageEventBackgroundTemplate>(image, "s")},
        {std::make_shared<HHBackground>(image, "n", red_), std::make_shared<ColorEventBackgroundTemplate>(red_)},
        {std::make_shared<HHBackground>(image, "n", std::nullopt), std::make_shared<NamedEventBackgroundTemplate>("n")},
        {std::make_shared<HHBackground>(image, none, std::nullopt),
         std::make_shared<ImageEventBackgroundTemplate>(image)},
        {std::make_shared<HHBackground>(nullptr, none, std::nullopt), nullptr},
        {std::make_shared<HHAppImage>(image, "n"), std::make_shared<NamedEventBackgroundTemplate>("n")},
        {std::make_shared<HHAppImage>(image), std::make_shared<ImageEventBackgroundTemplate>(image)},
        {std::make_shared<HHAppImage>(nullptr), nullptr},
        {std::make_shared<NamedEventIconPicture>("n"), nullptr},
        {"bg-37.jpg", nullptr},
        {nullptr, nullptr},
    };
    for (std::size_t index = 0; index < conversions.size(); ++index) {
        const auto& [old, expected] = conversions[index];
        const auto made = backgroundTemplateFromObject(old);
        ASSERT_EQ(made != nullptr, expected != nullptr) << index;
        EXPECT_TRUE(!made || made->isEqual(*expected)) << index;
    }
}

}  // namespace
}  // namespace dayward

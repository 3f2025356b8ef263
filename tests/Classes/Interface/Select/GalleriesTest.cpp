#include <gmock/gmock.h>

#include "Classes/Category/ColorEventBackgroundPicture.h"
#include "Classes/Category/ImageEventIconPicture.h"
#include "Classes/Category/NamedEventBackgroundPicture.h"
#include "Classes/Category/NamedEventIconPicture.h"
#include "Classes/Interface/Select/BackgroundsViewController.h"
#include "Classes/Interface/Select/ColorsViewController.h"
#include "Classes/Interface/Select/FontsViewController.h"
#include "Classes/Interface/Select/IconsViewController.h"
#include "Classes/Interface/Select/SoundsViewController.h"
#include "support/GalleryResources.h"
#include "support/ScriptedPresenter.h"

namespace dayward {
namespace {

using ::testing::Contains;
using ::testing::ElementsAre;

class GalleriesTest : public ::testing::Test {
protected:
    template <class Screen, class... Arguments>
    void open(Arguments&&... arguments) {
        shell.navigation.present(std::make_shared<Screen>(std::forward<Arguments>(arguments)...));
        shell.take();
    }
    void openIcons(IconsViewController::Icon selected = nullptr) {
        open<IconsViewController>(selected, std::vector<GalleryChoice>(),
                                  [this](const IconsViewController::Icon& chosen) { icon = chosen; });
    }
    /// The labels of a grid, with " *" where selected.
    std::vector<std::string> items(const std::string& row) const {
        std::vector<std::string> texts;
        for (const GridItem& item : std::get<GridContent>(shell.row(row).content).items) {
            texts.push_back(item.label + (item.selected ? " *" : ""));
        }
        return texts;
    }

    GalleryResources resources;
    TestEnvironment environment{resources.options()};
    ScriptedPresenter shell;
    IconsViewController::Icon icon;
};

TEST_F(GalleriesTest, ChoosesAnIconAndRemembersIt) {
    openIcons(std::make_shared<NamedEventIconPicture>("remind.png"));
    EXPECT_FALSE(shell.hasRow("recent"));
    EXPECT_THAT(items("group:Love"), ElementsAre("Heart", "Bell *"));
    shell.tapItem("group:Love", 0);
    EXPECT_EQ(dynamic_cast<const NamedEventIconPicture&>(*icon).named(), "heart4.png");
    EXPECT_THAT(shell.take(), ElementsAre("dismiss Icon"));
    openIcons();
    EXPECT_THAT(items("recent"), ElementsAre("Heart"));
    EXPECT_EQ(std::get<GridContent>(shell.row("recent").content).items[0].picture,
              std::get<GridContent>(shell.row("group:Love").content).items[0].picture);
}

TEST_F(GalleriesTest, TakesAPictureOfTheUsers) {
    const Image wide(1024, 2, Data(1024 * 2 * 4, 200));
    shell.picture = ChosenPicture{*wide.pngData(), "cat.png"};
    openIcons();
    shell.tap("ownPicture");
    EXPECT_FALSE(shell.row("ownPicture").enabled) << "while it is read";
    EXPECT_EQ(icon, nullptr);
    environment.queues->runAll();
    const auto& own = dynamic_cast<const ImageEventIconPicture&>(*icon);
    EXPECT_EQ(own.source(), "cat.png");
    EXPECT_EQ(own.image()->width(), kLongestIconSide);
    EXPECT_THAT(shell.take(), ElementsAre("choose picture", "dismiss Icon"));
}

TEST_F(GalleriesTest, TellsThatAPictureCannotBeRead) {
    openIcons();
    const auto held = shell.navigation.topScreen();
    dynamic_cast<PictureTarget&>(*held).takePicture({dataOf("no picture"), "notes.txt"});
    environment.queues->runAll();
    EXPECT_THAT(shell.take(), ElementsAre("alert \"notes.txt\" is no picture that can be read."));
    EXPECT_TRUE(shell.row("ownPicture").enabled);

    dynamic_cast<PictureTarget&>(*held).takePicture({dataOf("no picture"), "late.txt"});
    shell.back();
    environment.queues->runAll();
    EXPECT_THAT(shell.take(), ElementsAre("dismiss Icon")) << "a screen that has gone says nothing";
}

TEST_F(GalleriesTest, ChoosesABackground) {
    BackgroundsViewController::Background background = std::make_shared<ColorEventBackgroundPicture>(Color::white());
    const auto show = [&] {
        open<BackgroundsViewController>(
            background, std::vector<GalleryChoice>{{"category", "Category", false, [&] { background = nullptr; }}},
            [&](const auto& chosen) { background = chosen; });
    };
    show();
    EXPECT_THAT(items("group:Sky"), ElementsAre("Dusk", "Dawn"));
    EXPECT_EQ(items("colors").size(), 64U);
    EXPECT_EQ(items("colors").back(), "White *");
    EXPECT_EQ(items("colors")[1], "Red 0%, green 0%, blue 33%");
    shell.tapItem("group:Sky", 1);
    EXPECT_TRUE(background->isEqual(NamedEventBackgroundPicture("bg-38.jpg")));
    show();
    shell.tapItem("colors", 0);
    show();
    EXPECT_THAT(items("recent"), ElementsAre("Black *", "Dawn"));
    shell.tap("category");
    EXPECT_EQ(background, nullptr);
}

TEST_F(GalleriesTest, ChoosesAColorAndAFont) {
    std::optional<Color> color;
    open<ColorsViewController>("Text color", std::optional<Color>(), std::vector<GalleryChoice>(),
                               [&](const Color& chosen) { color = chosen; });
    EXPECT_EQ(items("base").size(), 16U);
    EXPECT_EQ(items("base")[13], "Navy");
    shell.tapItem("base", 13);
    EXPECT_EQ(color, Color::fromHex("#000080"));

    std::string font;
    const auto take = [&](const std::string& chosen) { font = chosen; };
    open<FontsViewController>("Georgia", std::vector<GalleryChoice>{{"category", "From the category", false, [] {}}},
                              take);
    EXPECT_THAT(shell.rows(), ElementsAre("From the category", "--", "Futura Medium", "Georgia *"));
    EXPECT_EQ(shell.row("fonts:Georgia").fontName, "Georgia");
    shell.tap("fonts:Futura-Medium");
    EXPECT_EQ(font, "Futura-Medium");
    open<FontsViewController>("Georgia", std::vector<GalleryChoice>(), take);
    EXPECT_THAT(shell.rows(), ElementsAre("Futura Medium", "--", "Futura Medium", "Georgia *"));
}

TEST_F(GalleriesTest, HandsTheSoundOverWhenItIsLeft) {
    std::vector<std::optional<std::string>> chosen;
    const auto show = [&](std::optional<std::string> selected) {
        open<SoundsViewController>(std::move(selected), [&](const auto& sound) { chosen.push_back(sound); });
    };
    show(std::nullopt);
    EXPECT_THAT(shell.rows(), ElementsAre("No Sound", "Default *", "--", "Soft Bell"));
    shell.back();
    EXPECT_THAT(chosen, ElementsAre()) << "nothing was tapped";
    show("Soft_Bell.wav");
    shell.tap("choices:");
    shell.tap("group:Bells:Soft_Bell.wav");
    EXPECT_THAT(chosen, ElementsAre());
    shell.back();
    EXPECT_THAT(chosen, ElementsAre("Soft_Bell.wav"));
    show("");
    EXPECT_THAT(shell.rows(), ElementsAre("No Sound *", "Default", "--", "Soft Bell", "--", "Soft Bell"));
}

}  // namespace
}  // namespace dayward

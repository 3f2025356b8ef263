#include <gmock/gmock.h>

#include <tuple>

#include "Classes/Category/CategoryLocalStore.h"
#include "Classes/Category/EventCategory.h"
#include "Classes/Category/NamedEventIconPicture.h"
#include "Classes/Interface/Select/CategoriesViewController.h"
#include "Classes/Interface/Select/CategoryViewController.h"
#include "support/GalleryResources.h"
#include "support/NotificationRecorder.h"
#include "support/ScriptedPresenter.h"

namespace dayward {
namespace {

using ::testing::ElementsAre;
using Category = std::shared_ptr<EventCategory>;

class CategoryScreensTest : public ::testing::Test {
protected:
    CategoryScreensTest() {
        for (const char* name : {"Work", "Home"}) {
            auto category = std::make_shared<EventCategory>(name);
            category->name = name;
            store().updateCategory(category, CategoryLocalStore::Initialize::no);
        }
        auto builtIn = std::make_shared<EventCategory>(*store().defaultCategory());
        builtIn->name = "Any";
        store().updateCategory(builtIn, CategoryLocalStore::Initialize::no);
        std::ignore = posted.take();
    }
    static CategoryLocalStore& store() { return CategoryLocalStore::shared(); }
    void select() {
        shell.navigation.present(std::make_shared<CategoriesViewController>(
            store().getCategory("Home"), [this](const Category& category) { chosen.push_back(category->key); }));
    }
    std::vector<bool> deletable() const {
        std::vector<bool> can;
        for (const TableRow& row : shell.top().sections().at(0).rows) can.push_back(row.canDelete);
        return can;
    }

    GalleryResources resources;
    TestEnvironment environment{resources.options()};
    NotificationRecorder posted{*environment, {CategoryLocalStoreDidUpdateNotification}};
    ScriptedPresenter shell;
    std::vector<std::string> chosen;
};

TEST_F(CategoryScreensTest, SelectsACategory) {
    select();
    EXPECT_THAT(shell.rows(), ElementsAre("Any", "Home *", "Work"));
    EXPECT_THAT(deletable(), ElementsAre(false, false, false));
    EXPECT_TRUE(shell.row("category:default").emphasized);
    shell.erase("category:Work");
    shell.tap("category:Work");
    EXPECT_THAT(chosen, ElementsAre("Work"));
    EXPECT_EQ(shell.navigation.modalStacks().size(), 0U);
    EXPECT_TRUE(store().getCategory("Work")) << "not while it is not edited";
}

TEST_F(CategoryScreensTest, ManagesCategoriesWhileEditing) {
    select();
    shell.press(BarButton::Role::edit);
    EXPECT_THAT(shell.rows(), ElementsAre("Any", "Home *", "Work", "New category"));
    EXPECT_THAT(deletable(), ElementsAre(false, true, true, false));
    shell.erase("category:Home");
    EXPECT_FALSE(store().getCategory("Home"));
    shell.tap("category:default");
    EXPECT_EQ(shell.top<ViewController>().title(), "Category");
    shell.back();
    shell.tap("append");
    shell.back();
    EXPECT_THAT(shell.rows(), ElementsAre("Any", "No name", "Work", "New category")) << "a new one is stored at once";
    shell.press(BarButton::Role::done);
    EXPECT_THAT(shell.rows(), ElementsAre("Any", "No name", "Work"));
    EXPECT_THAT(chosen, ElementsAre());
}

TEST_F(CategoryScreensTest, OpensACategoryWhereTheyAreManaged) {
    shell.navigation.present(std::make_shared<CategoriesViewController>());
    EXPECT_THAT(shell.rows(), ElementsAre("Any", "Home", "Work"));
    shell.tap("category:Home");
    EXPECT_EQ(shell.top<ViewController>().title(), "Category");
}

TEST_F(CategoryScreensTest, StoresWhatChangedWhenTheEditorIsLeft) {
    shell.navigation.present(std::make_shared<CategoriesViewController>());
    shell.tap("category:Work");
    shell.type("name", "Office");
    shell.tap("icon");
    EXPECT_THAT(posted.take(), ElementsAre()) << "a screen over it stores nothing";
    shell.tapItem("group:Love", 0);
    shell.tap("font");
    shell.tap("fonts:Georgia");
    shell.tap("textColor");
    shell.tapItem("base", 4);
    shell.tap("background");
    shell.tap("randomPicture");
    EXPECT_THAT(posted.take(), ElementsAre());
    shell.back();
    EXPECT_THAT(posted.take(), ElementsAre(CategoryLocalStoreDidUpdateNotification));
    EXPECT_THAT(shell.rows(), ElementsAre("Any", "Home", "Office"));

    const Category stored = store().getCategory("Work");
    EXPECT_EQ(stored->eventFont, "Georgia");
    EXPECT_EQ(stored->eventTextColor, Color::fromHex("#FF0000"));
    EXPECT_TRUE(stored->eventIcon->isEqual(NamedEventIconPicture("heart4.png")));
    EXPECT_TRUE(stored->eventBackgroundTpl->isRandom());

    shell.tap("category:Work");
    shell.tap("background");
    EXPECT_TRUE(shell.row("randomPicture").checked);
    shell.tapItem("group:Sky", 0);
    shell.type("name", "");
    shell.back();
    EXPECT_EQ(store().getCategory("Work")->name, "") << "an empty name is stored as it is";
    EXPECT_FALSE(store().getCategory("Work")->eventBackgroundTpl->isRandom());
}

TEST_F(CategoryScreensTest, StoresNothingWhereNothingChanged) {
    shell.navigation.present(std::make_shared<CategoryViewController>(store().getCategory("Work")));
    shell.type("name", "Work");
    shell.tap("icon");
    shell.back();
    shell.back();
    EXPECT_THAT(posted.take(), ElementsAre());
}

}  // namespace
}  // namespace dayward

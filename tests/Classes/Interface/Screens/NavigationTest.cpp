#include "Classes/Interface/Screens/Navigation.h"

#include <gmock/gmock.h>

#include "support/ScriptedPresenter.h"

namespace dayward {
namespace {

using ::testing::ElementsAre;
using Lines = std::vector<std::string>;

/// Writes each call of its life to one list with the others.
class LifeScreen : public ViewController {
public:
    LifeScreen(std::string name, Lines& lines) : lines_(lines) { setTitle(std::move(name)); }

    void viewDidLoad() override { add("load"); }
    void viewWillAppear() override {
        add("+");
        if (onWillAppear) std::exchange(onWillAppear, nullptr)(presenter());
    }
    void viewDidAppear() override { add("++"); }
    void viewWillDisappear(Disappearance why) override { add(why == Disappearance::leaving ? "-leaving" : "-covered"); }
    void viewDidDisappear(Disappearance) override { add("--"); }
    void detailPaneDidChange() override { add("pane"); }
    [[nodiscard]] bool belongsInDetailPane() const override { return title() == "detail"; }
    [[nodiscard]] bool hasContent() const override { return content; }
    void offer(BarButton::Role role, std::function<void()> action) {
        setBarButtons({{role, "button", std::move(action)}});
    }

    std::function<void(Presenter&)> onWillAppear;
    bool content = true;

private:
    void add(const std::string& what) { lines_.push_back(title() + " " + what); }
    Lines& lines_;
};

class NavigationTest : public ::testing::Test {
protected:
    std::shared_ptr<LifeScreen> make(const std::string& name) { return std::make_shared<LifeScreen>(name, life); }
    Lines take() { return std::exchange(life, {}); }

    Lines life;
    std::shared_ptr<LifeScreen> list = make("list");
    std::shared_ptr<LifeScreen> detail = make("detail");
    std::shared_ptr<LifeScreen> editor = make("editor");
    std::shared_ptr<LifeScreen> units = make("units");
    ScriptedPresenter shell{list};
    Navigation& navigation = shell.navigation;
};

TEST_F(NavigationTest, DrivesTheLifeOfStacksInOneOrder) {
    EXPECT_THAT(take(), ElementsAre("list load", "list +", "list ++"));
    navigation.push(*list, detail);
    EXPECT_THAT(take(), ElementsAre("detail load", "list -covered", "detail +", "list --", "detail ++"));
    navigation.present(editor);
    EXPECT_THAT(take(), ElementsAre("editor load", "detail -covered", "editor +", "detail --", "editor ++"));
    navigation.push(*editor, units);
    take();
    navigation.pop(*detail);  // out of sight: it just goes
    EXPECT_THAT(take(), ElementsAre());
    EXPECT_FALSE(detail->isPresented());
    navigation.dismiss(*units);
    EXPECT_THAT(take(), ElementsAre("units -leaving", "list +", "units --", "list ++"));
    EXPECT_FALSE(editor->isPresented());
    EXPECT_THAT(shell.take(),
                ElementsAre("push detail", "present editor", "push units", "pop detail", "dismiss editor"));
    navigation.pop(*units);
    navigation.push(*detail, make("nowhere"));
    EXPECT_THAT(shell.take(), ElementsAre()) << "requests of screens that have left do nothing";
}

TEST_F(NavigationTest, CarriesOutOneChangeBeforeTheNext) {
    take();
    detail->onWillAppear = [this](Presenter& presenter) { presenter.pop(*detail); };
    navigation.push(*list, detail);
    EXPECT_THAT(take(), ElementsAre("detail load", "list -covered", "detail +", "list --", "detail ++",  //
                                    "detail -leaving", "list +", "detail --", "list ++"));
}

TEST_F(NavigationTest, ClosesPanelsWithWhatIsUnderThem) {
    navigation.present(editor);
    take();
    navigation.presentPanel(*editor, units);
    EXPECT_THAT(take(), ElementsAre("units load", "units +", "units ++")) << "the editor stays in sight";
    EXPECT_EQ(navigation.topScreen(), units);
    navigation.push(*editor, make("next"));
    EXPECT_THAT(take(), ElementsAre("next load", "editor -covered", "units -leaving", "next +", "editor --", "units --",
                                    "next ++"));
    navigation.presentPanel(*editor, units);
    EXPECT_THAT(take(), ElementsAre()) << "only the top of a stack shows a panel";
}

TEST_F(NavigationTest, GoesBackStepByStep) {
    bool cancelled = false;
    editor->offer(BarButton::Role::cancel, [&] {
        cancelled = true;
        navigation.dismiss(*editor);
    });
    navigation.present(editor);
    navigation.push(*editor, units);
    navigation.presentPanel(*units, detail);
    shell.take();
    for (const char* expected : {"close detail", "pop units", "dismiss editor"}) {
        EXPECT_FALSE(cancelled);
        EXPECT_TRUE(navigation.goBack());
        EXPECT_THAT(shell.take(), ElementsAre(expected));
    }
    EXPECT_TRUE(cancelled);
    EXPECT_FALSE(navigation.goBack()) << "the root stays";
}

TEST_F(NavigationTest, MovesTheDetailBetweenStackAndPane) {
    navigation.push(*list, detail);
    navigation.push(*detail, units);
    take();
    navigation.setHasDetailPane(true);
    EXPECT_THAT(take(), ElementsAre("list +", "list ++", "list pane", "detail pane", "units pane"));
    EXPECT_THAT(navigation.screens(StackId::detail), ElementsAre(detail, units));
    navigation.present(editor);
    EXPECT_THAT(take(), ElementsAre("editor load", "editor +", "editor ++")) << "a sheet leaves the rest in sight";
    navigation.setHasDetailPane(false);
    navigation.dismiss(*editor);
    EXPECT_THAT(navigation.screens(StackId::root), ElementsAre(list, detail, units));

    navigation.pop(*detail);
    navigation.setHasDetailPane(true);
    detail->content = false;
    navigation.showDetail(detail);
    navigation.setHasDetailPane(false);
    EXPECT_THAT(navigation.screens(StackId::root), ElementsAre(list)) << "an empty detail stays out";
}

}  // namespace
}  // namespace dayward

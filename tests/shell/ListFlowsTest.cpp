// What a user does with the event list, by fingers, mouse and keyboard.
#include "Classes/App/AppManager.h"
#include "Classes/Import/SiblingImportService.h"
#include "Classes/Interface/Events/EventDetailViewController.h"
#include "alerts/MissedEventsHelper.h"
#include "shell/FlowsFixture.h"

namespace dayward {

class ListFlows : public Flows {
protected:
    using Flows::Flows;

    /// Three events, in the order made by hand.
    void storeThree() {
        store("a", "Alpha", "2026-03-20");
        store("b", "Beta", "2026-03-21");
        store("c", "Gamma", "2026-03-22");
        AppSettings::setTableSortIdentifiers({"a", "b", "c"});
        sortBy(EventSortType::byCustom);
        EXPECT_TRUE(until([&] { return shownRows() == QStringList{"Alpha", "Beta", "Gamma"}; }));
        settle();
    }
    bool detailIsOver() {
        return until([&] { return shell.navigation().screens(StackId::root).size() == 2; });
    }
    /// How far down the list is scrolled.
    static double offset(const QQuickItem& view) {
        return view.property("contentY").toDouble() - view.property("originY").toDouble();
    }
    [[nodiscard]] QQuickItem* listView() const {
        QQuickItem* found = item(QStringLiteral("Alpha"));
        while (found != nullptr && !found->property("contentY").isValid()) found = found->parentItem();
        return found;
    }
};

TEST_F(ListFlows, tapOpensARowAndEditingChangesIt) {
    storeThree();
    tap(QStringLiteral("Beta"));
    ASSERT_TRUE(detailIsOver());
    settle();
    click(QStringLiteral("Edit"));
    ASSERT_TRUE(topIs("Event"));
    settle();
    ASSERT_NE(field(QStringLiteral("Event name")), nullptr);
    QTest::mouseClick(quick, Qt::LeftButton, {}, middleOf(field(QStringLiteral("Event name"))));
    press(Qt::Key_End);
    type(QStringLiteral("max"));
    tap(QStringLiteral("Done"));
    ASSERT_TRUE(until([&] { return shell.navigation().modalStacks().empty(); }));
    EXPECT_EQ(EventLocalStore::shared().eventByIdentifier("b")->name(), "Betamax");
    settle();
    tap(QStringLiteral("Back"));
    ASSERT_TRUE(topIs("Events"));
    EXPECT_TRUE(until([&] { return item(QStringLiteral("Betamax")) != nullptr; }));
}

TEST_F(ListFlows, aSwipedRowOffersItsRemovalAndAFarOneIsRemoved) {
    storeThree();
    drag(middleOf(QStringLiteral("Beta")), {-110, 3});
    EXPECT_EQ(names().size(), 3U);
    settle();
    drag(middleOf(QStringLiteral("Beta")), {});
    settle();
    EXPECT_EQ(shell.navigation().screens(StackId::root).size(), 1U) << "a tap takes the offer back";
    EXPECT_EQ(names().size(), 3U);
    drag(middleOf(QStringLiteral("Gamma")), {-110, 0});
    settle();
    drag({360, middleOf(QStringLiteral("Gamma")).y()}, {});
    ASSERT_TRUE(until([&] { return shownRows() == QStringList{"Alpha", "Beta"}; }));
    settle();
    drag({380, middleOf(QStringLiteral("Alpha")).y()}, {-300, 0});
    ASSERT_TRUE(until([&] { return shownRows() == QStringList{"Beta"}; }));
    settle();
    tap(QStringLiteral("Undo"));
    EXPECT_TRUE(until([&] { return shownRows() == QStringList{"Alpha", "Beta"}; }));
    settle();
    press(Qt::Key_Z, Qt::ControlModifier);
    EXPECT_TRUE(until([&] {
        return shownRows() == QStringList{"Alpha", "Beta", "Gamma"};
    })) << "one removal after the other comes back";
}

TEST_F(ListFlows, aRowThatTakesTheItemOfARemovedOneStandsInItsPlace) {
    storeThree();
    const qreal place = item(QStringLiteral("Alpha"))->mapToScene({}).x();
    EventLocalStore::shared().removeAllEvents();
    ASSERT_TRUE(until([&] { return shownRows().isEmpty(); }));
    settle();
    storeThree();
    for (const char* name : {"Alpha", "Beta", "Gamma"}) {
        EXPECT_EQ(item(QString::fromUtf8(name))->mapToScene({}).x(), place) << name;
    }
}

TEST_F(ListFlows, aPullFarEnoughClearsTheMissedEvents) {
    storeThree();
    sortBy(EventSortType::byDate);
    MissedEventsHelper::setMissedEvents({"b"});
    split.master()->configureDataSources();
    ASSERT_TRUE(until([&] { return shownRows() == QStringList{"Beta", "Alpha", "Gamma"}; }));
    settle();
    drag({200, 250}, {0, 200});
    settle();
    EXPECT_TRUE(MissedEventsHelper::isMissed("b")) << "not far enough";
    drag({200, 250}, {0, 450});
    EXPECT_FALSE(MissedEventsHelper::isMissed("b"));
    EXPECT_TRUE(until([&] { return shownRows() == QStringList{"Alpha", "Beta", "Gamma"}; }));
}

TEST_F(ListFlows, theMenuOfAMissedRowClearsByKeyboard) {
    storeThree();
    sortBy(EventSortType::byDate);
    MissedEventsHelper::setMissedEvents({"b"});
    split.master()->configureDataSources();
    ASSERT_TRUE(until([&] { return shownRows() == QStringList{"Beta", "Alpha", "Gamma"}; }));
    settle();
    press(Qt::Key_Home);
    press(Qt::Key_Menu);
    settle();
    for (int item = 0; item < 3; ++item) press(Qt::Key_Down);
    press(Qt::Key_Return);
    EXPECT_TRUE(until([&] { return !MissedEventsHelper::isMissed("b"); }));
    EXPECT_TRUE(until([&] { return shownRows() == QStringList{"Alpha", "Beta", "Gamma"}; }));
}

TEST_F(ListFlows, rowsAreMovedByHandAndByKeyboard) {
    storeThree();
    press(Qt::Key_Down);
    press(Qt::Key_Down, Qt::AltModifier);
    press(Qt::Key_Down, Qt::AltModifier);
    EXPECT_EQ(shownRows(), (QStringList{"Beta", "Gamma", "Alpha"}));
    press(Qt::Key_Up, Qt::AltModifier);
    EXPECT_EQ(shownRows(), (QStringList{"Beta", "Alpha", "Gamma"})) << "the keyboard went along";
    settle();
    click(QStringLiteral("Edit"));
    settle();
    const QPoint step(0, middleOf(QStringLiteral("Alpha")).y() - middleOf(QStringLiteral("Beta")).y());
    const int handle = 375;
    drag({handle, middleOf(QStringLiteral("Gamma")).y()}, -2 * step);
    EXPECT_EQ(shownRows(), (QStringList{"Gamma", "Beta", "Alpha"}));
    settle();
    dragByMouse({handle, middleOf(QStringLiteral("Gamma")).y()}, step);
    EXPECT_EQ(shownRows(), (QStringList{"Beta", "Gamma", "Alpha"}));
    EXPECT_EQ(AppSettings::tableSortIdentifiers(), (std::vector<std::string>{"b", "c", "a"}));
}

TEST_F(ListFlows, aLongListScrollsUnderTheFingerWhileItIsEdited) {
    for (int count = 10; count < 40; ++count)
        store(std::to_string(count), "Row " + std::to_string(count), "2026-03-20");
    store("a", "Alpha", "2026-03-20");
    sortBy(EventSortType::byName);
    ASSERT_TRUE(until([&] { return shownRows().size() == 31; }));
    settle();
    for (const EventSortType order : {EventSortType::byName, EventSortType::byCustom}) {
        sortBy(order);
        ASSERT_TRUE(until([&] { return item(QStringLiteral("Alpha")) != nullptr; }));
        split.master()->setEditing(true);
        settle();
        const QQuickItem* const view = listView();
        const double before = offset(*view);
        const QStringList rows = shownRows();
        drag({150, 600}, {0, -200});
        EXPECT_GT(offset(*view), before + 100);
        EXPECT_EQ(shownRows(), rows);
        split.master()->setEditing(false);
        settle();
    }
}

TEST_F(ListFlows, theKeyboardReachesEveryRowAndRemovesOneAfterTheOther) {
    for (int count = 10; count < 40; ++count) {
        store(std::to_string(count), "Row " + std::to_string(count),
              count < 25 ? "2026-03-" + std::to_string(count + 5) : "2027-03-" + std::to_string(count - 9));
    }
    ASSERT_TRUE(until([&] { return shownRows().size() == 30; }));
    settle();
    press(Qt::Key_End);
    press(Qt::Key_Return);
    ASSERT_TRUE(detailIsOver());
    EXPECT_TRUE(topIs("Row 39"));
    settle();
    press(Qt::Key_Escape);
    ASSERT_TRUE(topIs("Events"));
    settle();
    press(Qt::Key_Home);
    press(Qt::Key_Return);
    EXPECT_TRUE(topIs("Row 10"));
    settle();
    press(Qt::Key_Escape);
    ASSERT_TRUE(topIs("Events"));
    settle();
    for (int count = 0; count < 16; ++count) {
        press(Qt::Key_Delete);
        ASSERT_TRUE(until([&] { return static_cast<int>(names().size()) == 29 - count; })) << count;
        settle();
    }
    EXPECT_EQ(shownRows().front(), "Row 26");
}

TEST_F(ListFlows, escapeLeavesSearchAndEditing) {
    storeThree();
    press(Qt::Key_F, Qt::ControlModifier);
    type(QStringLiteral("gam"));
    ASSERT_TRUE(until([&] { return shownRows() == QStringList{"Gamma"}; }));
    settle();
    tap(QStringLiteral("Gamma"));
    ASSERT_TRUE(detailIsOver());
    settle();
    press(Qt::Key_Escape);
    ASSERT_TRUE(topIs("Events"));
    EXPECT_TRUE(split.master()->isSearching()) << "what was found is still there";
    settle();
    press(Qt::Key_Escape);
    EXPECT_FALSE(split.master()->isSearching());
    EXPECT_EQ(shownRows().size(), 3);
    split.master()->setEditing(true);
    settle();
    press(Qt::Key_Escape);
    EXPECT_FALSE(split.master()->isEditing());
    EXPECT_EQ(names().size(), 3U);
}

TEST_F(ListFlows, theKeyboardGoesThroughTheSearchFieldWithoutSearching) {
    storeThree();
    for (int count = 0; count < 12; ++count) {
        press(Qt::Key_Tab);
        if (split.master()->isSearching()) break;
    }
    for (int count = 0; count < 3; ++count) press(Qt::Key_Tab);
    EXPECT_FALSE(split.master()->isSearching());
    EXPECT_EQ(shownRows().size(), 3);
}

TEST_F(ListFlows, aListThatHasLostItsRowsIsNoStopOfTheKeyboard) {
    storeThree();
    EventLocalStore::shared().removeAllEvents();
    ASSERT_TRUE(until([&] { return shownRows().isEmpty(); }));
    settle();
    QQuickItem* const list = quick->activeFocusItem();
    ASSERT_TRUE(list != nullptr && list->property("rowHeight").isValid());
    item(QStringLiteral("Settings"))->forceActiveFocus(Qt::TabFocusReason);
    EXPECT_FALSE(list->hasActiveFocus());
    EXPECT_FALSE(list->activeFocusOnTab());
}

TEST_F(ListFlows, aTapSelectsBesideTheDetail) {
    storeThree();
    quick->resize(1200, 800);
    ASSERT_TRUE(until([&] { return split.detail() && split.detail()->eventIdentifier() == "a"; }));
    settle();
    tap(QStringLiteral("Gamma"));
    EXPECT_EQ(split.detail()->eventIdentifier(), "c");
    EXPECT_EQ(split.master()->selectedPath(), (IndexPath{0, 2}));
    press(Qt::Key_N, Qt::ControlModifier);
    ASSERT_TRUE(topIs("New event"));
    press(Qt::Key_Escape);
    ASSERT_TRUE(until([&] { return shell.navigation().modalStacks().empty(); }));
    settle();
    split.master()->deleteRow({0, 2});
    EXPECT_TRUE(until([&] { return split.detail()->eventIdentifier() == "a"; }));
}

TEST_F(ListFlows, theHeaderOfTodayIsOfTheDayThatItIs) {
    auto event = store("a", "Alpha", "2026-03-10");
    event->setTimes({18 * 60});
    event->setRrule("FREQ=DAILY;INTERVAL=1");
    EventLocalStore::shared().updateEvent(event);
    ASSERT_TRUE(until([&] { return item(QStringLiteral("Today Tuesday, March 10")) != nullptr; }));
    environment.clock->advance(TimeInterval(86400));
    split.master()->timerAction();
    EXPECT_TRUE(until([&] { return item(QStringLiteral("Today Wednesday, March 11")) != nullptr; }));
}

/// The sibling edition is there; what it is asked is counted.
class ScriptedSibling final : public SiblingImportService {
public:
    int asked = 0;

    [[nodiscard]] bool canImportFromFreeVersion() const override { return true; }
    void performImportFromFreeVersion() override { ++asked; }
    bool handleOpenURL(const std::string&) override { return false; }
};

class FirstLaunch : public Flows {
protected:
    FirstLaunch() {
        AppManager::setWindow(&window);
        AppManager::setSiblingImport(sibling);
        AppManager::initializeApp();
        AppManager::handleFirstLaunch();
    }
    ~FirstLaunch() override { AppManager::setWindow(nullptr); }

    const std::shared_ptr<ScriptedSibling> sibling = std::make_shared<ScriptedSibling>();
};

TEST_F(FirstLaunch, addsTheDefaultEventsOnceWhereTheOfferIsDeclined) {
    ASSERT_TRUE(until([&] { return item(QStringLiteral("Import events from free version?")) != nullptr; }));
    EXPECT_TRUE(names().empty()) << "nothing before the answer";
    tap(QStringLiteral("No"));
    ASSERT_TRUE(until([&] { return !names().empty(); }));
    const auto added = names();
    AppManager::handleFirstLaunch();
    settle();
    EXPECT_EQ(names(), added);
    EXPECT_EQ(item(QStringLiteral("Import events from free version?")), nullptr);
    EXPECT_EQ(sibling->asked, 0);
}

TEST_F(FirstLaunch, asksTheSiblingWhereTheOfferIsTaken) {
    tap(QStringLiteral("Yes"));
    ASSERT_TRUE(until([&] { return sibling->asked == 1; }));
    AppManager::handleFirstLaunch();
    settle();
    EXPECT_TRUE(names().empty());
}

}  // namespace dayward

// What a user does with the window, by mouse and keyboard.
#include "shell/FlowsFixture.h"

namespace dayward {

TEST_F(Flows, addsAnEventByTyping) {
    addEvent(QStringLiteral("Concert"));
    EXPECT_EQ(names(), std::vector<std::string>{"Concert"});
    // The new event is shown, and Back leads to its row.
    EXPECT_TRUE(until([&] { return shell.navigation().screens(StackId::root).size() == 2; }));
    press(Qt::Key_Escape);
    EXPECT_TRUE(topIs("Events"));
    EXPECT_TRUE(until([&] { return item(QStringLiteral("Concert")) != nullptr; }));
}

TEST_F(Flows, cancelsWithEscapeAndChangesNothing) {
    press(Qt::Key_N, Qt::ControlModifier);
    ASSERT_TRUE(topIs("New event"));
    settle();
    click(QStringLiteral("Event name"));
    type(QStringLiteral("Nothing"));
    press(Qt::Key_Escape);
    EXPECT_TRUE(until([&] { return shell.navigation().modalStacks().empty(); }));
    EXPECT_TRUE(names().empty());
}

TEST_F(Flows, deletesByKeyboardAndTakesItBack) {
    addEvent(QStringLiteral("Concert"));
    settle();
    press(Qt::Key_Escape);
    ASSERT_TRUE(topIs("Events"));
    settle();
    press(Qt::Key_Down);
    press(Qt::Key_Delete);
    ASSERT_TRUE(until([&] { return names().empty(); }));
    settle();
    press(Qt::Key_Z, Qt::ControlModifier);
    EXPECT_TRUE(until([&] { return names() == std::vector<std::string>{"Concert"}; }));
}

TEST_F(Flows, searchesFromTheKeyboard) {
    addEvent(QStringLiteral("Concert"));
    press(Qt::Key_Escape);
    ASSERT_TRUE(topIs("Events"));
    settle();
    press(Qt::Key_F, Qt::ControlModifier);
    type(QStringLiteral("zzz"));
    EXPECT_EQ(split.master()->searchText(), "zzz");
    EXPECT_TRUE(split.master()->emptyAdvice().has_value());
    press(Qt::Key_Escape);
    EXPECT_FALSE(split.master()->isSearching());
}

TEST_F(Flows, opensAScreenOfSettingsAndGoesBackByMouse) {
    press(Qt::Key_Comma, Qt::ControlModifier);
    ASSERT_TRUE(topIs("Settings"));
    settle();
    click(QStringLiteral("Theme"));
    ASSERT_TRUE(topIs("Theme"));
    settle();
    click(QStringLiteral("Dark"));
    EXPECT_TRUE(window.appearance().isDark());
    click(QStringLiteral("Back"));
    ASSERT_TRUE(topIs("Settings"));
    settle();
    click(QStringLiteral("Done"));
    EXPECT_TRUE(topIs("Events"));
}

TEST_F(Flows, putsListAndDetailSideBySideInAWideWindow) {
    addEvent(QStringLiteral("Concert"));
    ASSERT_TRUE(until([&] { return shell.navigation().screens(StackId::root).size() == 2; }));
    quick->resize(1200, 800);
    ASSERT_TRUE(until([&] { return shell.hasDetailPane(); }));
    EXPECT_EQ(shell.navigation().screens(StackId::root).size(), 1U);
    EXPECT_EQ(shell.navigation().screens(StackId::detail).size(), 1U);
    settle();
    quick->resize(400, 800);
    ASSERT_TRUE(until([&] { return !shell.hasDetailPane(); }));
    EXPECT_EQ(shell.navigation().screens(StackId::root).size(), 2U);
}

TEST_F(ShellFixture, opensAWindowThatTheScreenHolds) {
    Shell shell(*environment);
    const QtWindow window(*environment, shell);
    EXPECT_LT(window.quickWindow()->height(), window.quickWindow()->screen()->availableSize().height());
}

TEST_F(Flows, theDetailStaysLiveWhereverItStands) {
    addEvent(QStringLiteral("Concert"));
    ASSERT_TRUE(until([&] { return shell.navigation().screens(StackId::root).size() == 2; }));
    int shown = 0;
    for (const int width : {1200, 400, 1200}) {
        quick->resize(width, 800);
        ASSERT_TRUE(until([&] { return shell.hasDetailPane() == (width == 1200); }));
        settle();
        auto event = std::make_shared<HHEvent>(*EventLocalStore::shared().allEvents().front());
        event->setNote("Seen at " + std::to_string(width) + (shown++ == 0 ? " first" : " later"));
        EventLocalStore::shared().updateEvent(event);
        EXPECT_TRUE(until([&] { return item(QString::fromStdString(*event->note())) != nullptr; })) << width;
    }
}

TEST_F(Flows, asksAndTakesTheAnswer) {
    int answered = 0;
    shell.navigation().alert({"Delete event?",
                              "It cannot be undone.",
                              {{"Cancel", AlertButton::Role::cancel, [&] { answered = 1; }},
                               {"Delete", AlertButton::Role::destructive, [&] { answered = 2; }}}});
    settle();
    click(QStringLiteral("Delete"));
    EXPECT_TRUE(until([&] { return answered == 2; }));
    shell.navigation().alert({"Again?", "", {{"Cancel", AlertButton::Role::cancel, [&] { answered = 3; }}}});
    settle();
    press(Qt::Key_Escape);
    EXPECT_TRUE(until([&] { return answered == 3; }));
    shell.navigation().alert({"Rung", "", {{"OK", AlertButton::Role::cancel, [&] { answered = 4; }}}, "ring"});
    ASSERT_TRUE(until([&] { return item(QStringLiteral("Rung")) != nullptr; }));
    shell.navigation().dismissAlert("ring");
    EXPECT_TRUE(until([&] { return item(QStringLiteral("Rung")) == nullptr; }));
    EXPECT_EQ(answered, 3);
}

TEST_F(Flows, aWordInPassingIsSeenOverASheet) {
    press(Qt::Key_Comma, Qt::ControlModifier);
    ASSERT_TRUE(topIs("Settings"));
    settle();
    shell.navigation().showNotice({.text = "Sent"});
    ASSERT_TRUE(until([&] { return item(QStringLiteral("Sent")) != nullptr; }));
    settle();
    QQuickItem* bar = item(QStringLiteral("Sent"));
    while (bar != nullptr && spokenOf(*bar).isEmpty()) bar = bar->parentItem();
    ASSERT_NE(bar, nullptr);
    const QPoint edge = bar->mapToScene({bar->width() / 2, 4}).toPoint();
    EXPECT_EQ(quick->grabWindow().pixelColor(edge), bar->property("color").value<QColor>());
    EXPECT_EQ(itemIn(bar, "strong", QStringLiteral("true")), nullptr) << "there is nothing to press";
}

TEST_F(Flows, aNoticeThatIsNotShownStaysOutOfAWindowThatGrows) {
    shell.navigation().showNotice({.text = "Sent", .shownFor = TimeInterval(0.5)});
    ASSERT_TRUE(until([&] { return item(QStringLiteral("Sent")) != nullptr; }));
    const QQuickItem* const words = item(QStringLiteral("Sent"));
    ASSERT_TRUE(until([&] { return !words->isVisible(); }));
    quick->resize(400, 900);
    ASSERT_TRUE(until([&] { return quick->contentItem()->height() == 900; }));
    EXPECT_FALSE(words->isVisible());
}

TEST_F(Flows, aTapOnANoticeIsNotForTheRowBelow) {
    for (const char letter : std::string("abcdefghijkl")) store({letter}, {letter}, "2026-03-20");
    shell.navigation().showNotice({.text = "Deleted", .actionTitle = "Undo", .shownFor = TimeInterval(30)});
    ASSERT_TRUE(until([&] { return item(QStringLiteral("Deleted")) != nullptr; }));
    settle();
    const QPoint text = middleOf(QStringLiteral("Deleted"));
    QTest::mouseClick(quick, Qt::LeftButton, {}, text);
    drag(text, {});
    settle();
    EXPECT_EQ(shell.navigation().topScreen()->title(), "Events");
}

TEST_F(Flows, rowsThatScrolledAwayAndCameBackAreLive) {
    std::vector<std::shared_ptr<HHEvent>> events;
    for (int number = 10; number < 70; ++number) {
        auto event = std::make_shared<HHEvent>();
        event->setName("Event " + std::to_string(number));
        event->setDate(environment->now() + TimeInterval(86400.0 * number));
        events.push_back(event);
    }
    EventLocalStore::shared().updateEvents(events);
    ASSERT_TRUE(until([&] { return item(QStringLiteral("Event 10")) != nullptr; }));
    QQuickItem* list = item(QStringLiteral("Event 10"));
    while (list != nullptr && !list->inherits("QQuickListView")) list = list->parentItem();
    ASSERT_NE(list, nullptr);
    const auto scroll = [&](double to) { list->setProperty("contentY", list->property("originY").toDouble() + to); };
    for (double at = 0; at <= 60; ++at) {
        scroll(84 * at);
        QCoreApplication::processEvents();
    }
    EXPECT_EQ(item(QStringLiteral("Event 10")), nullptr);
    for (double at = 60; at >= 0; --at) {
        scroll(84 * at);
        QCoreApplication::processEvents();
    }
    ASSERT_TRUE(until([&] { return item(QStringLiteral("Event 10")) != nullptr; }));
    events.front()->setName("Renamed");
    EventLocalStore::shared().updateEvent(events.front());
    EXPECT_TRUE(until([&] { return item(QStringLiteral("Renamed")) != nullptr; }));
}

TEST_F(Flows, offersTheActionsOfARowByTheRightButton) {
    addEvent(QStringLiteral("Concert"));
    press(Qt::Key_Escape);
    ASSERT_TRUE(topIs("Events"));
    settle();
    QQuickItem* const row = item(QStringLiteral("Concert"));
    ASSERT_NE(row, nullptr);
    QTest::mouseClick(quick, Qt::RightButton, {}, row->mapToScene({4, 4}).toPoint());
    click(QStringLiteral("Delete"));
    EXPECT_TRUE(until([&] { return names().empty(); }));
}

}  // namespace dayward

// What a user does in the editors: by the keyboard alone, by dragging, by dropping.
#include <QDropEvent>
#include <QImage>
#include <QMimeData>
#include <QTemporaryDir>
#include <algorithm>

#include "Classes/App/HHAppTimerKeys.h"
#include "Classes/Category/EventCategory.h"
#include "Classes/Category/ImageEventBackgroundPicture.h"
#include "Classes/Category/ImageEventIconPicture.h"
#include "Classes/Category/ImagePicture.h"
#include "Classes/Interface/Edit/DateTimesViewController.h"
#include "Classes/Interface/Edit/EventEditViewController.h"
#include "Classes/Interface/Edit/PeriodExViewController.h"
#include "Classes/Interface/Edit/RRuleExViewController.h"
#include "Classes/Interface/Info/DefaultValuesViewController.h"
#include "Classes/Interface/Select/CategoriesViewController.h"
#include "Classes/Interface/Select/CategoryViewController.h"
#include "shell/FlowsFixture.h"

namespace dayward {

class EditorFlows : public Flows {
protected:
    std::shared_ptr<EventEditViewController> openEditor(std::shared_ptr<HHEvent> event = nullptr) {
        auto editor = std::make_shared<EventEditViewController>(std::move(event));
        shell.navigation().present(editor);
        settle();
        return editor;
    }
    template <class Screen>
    Screen& top() {
        return dynamic_cast<Screen&>(*shell.navigation().topScreen());
    }
    /// Opens the row that the keyboard walks to.
    void open(const QString& row, const std::string& title) {
        walkTo(row);
        press(Qt::Key_Return);
        ASSERT_TRUE(topIs(title));
        settle();
    }
    /// The panel of the uppermost stack.
    [[nodiscard]] ScreenItem* panel() const { return shell.modalStacks().last()->panel(); }
    /// For a new event with times, whose editor then gets the row "Show age".
    void chooseYearly() {
        auto event = std::make_shared<HHEvent>("pills");
        event->setTimes({600, 1200});
        openEditor(event);
        open(QStringLiteral("Repeat,"), "Repeat");
        walkTo(QStringLiteral("Yearly"));
        press(Qt::Key_Return);
        ASSERT_TRUE(until([&] { return item(QStringLiteral("Show age")) != nullptr; }));
    }
    /// The row of a form that shows that text.
    QQuickItem* rowOf(const QString& text) {
        EXPECT_TRUE(until([&] { return item(text) != nullptr; })) << text.toStdString();
        QQuickItem* row = item(text);
        while (row != nullptr && !row->property("takesFocus").isValid()) row = row->parentItem();
        return row;
    }
    static void expectRowsBelowOneAnother(const QQuickItem& form) {
        QList<QQuickItem*> rows = form.childItems();
        rows.removeIf([](const QQuickItem* row) { return !row->isVisible() || row->height() == 0; });
        ASSERT_GT(rows.size(), 5);
        std::ranges::sort(rows, {}, &QQuickItem::y);
        for (int place = 1; place < rows.size(); ++place) {
            const QQuickItem& above = *rows[place - 1];
            EXPECT_EQ(rows[place]->y(), above.y() + above.height()) << spokenOf(*rows[place]).toStdString();
        }
    }
    /// Whether the place of the keyboard is drawn anywhere below that item.
    static bool showsFocus(const QQuickItem& parent) {
        const auto children = parent.childItems();
        return std::any_of(children.begin(), children.end(), [](const QQuickItem* child) {
            const bool isRing = child->property("target").isValid() && child->property("gap").isValid();
            return child->isVisible() && (isRing || showsFocus(*child));
        });
    }
    /// A file dragged over a place of the window, its middle unless told, and let go there.
    void drop(const QString& path, QPoint place = {}) {
        QMimeData data;
        data.setUrls({QUrl::fromLocalFile(path)});
        if (place.isNull()) place = {quick->width() / 2, quick->height() / 2};
        QDragEnterEvent enter(place, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
        QCoreApplication::sendEvent(quick, &enter);
        QDragMoveEvent move(place, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
        QCoreApplication::sendEvent(quick, &move);
        QDropEvent let(place, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
        QCoreApplication::sendEvent(quick, &let);
    }

    /// Of a red picture of that size.
    [[nodiscard]] QString pictureFile(QSize size) const {
        QImage picture(size, QImage::Format_RGB32);
        picture.fill(Qt::red);
        const QString file = scratch.filePath(QStringLiteral("own.png"));
        EXPECT_TRUE(picture.save(file));
        return file;
    }
    static std::shared_ptr<ImageEventBackgroundPicture> ownBackground(const EventEditViewController& editor) {
        return std::dynamic_pointer_cast<ImageEventBackgroundPicture>(editor.state().background);
    }

    const QTemporaryDir scratch;
};

TEST_F(EditorFlows, makeAnEventByTheKeyboardAlone) {
    press(Qt::Key_N, Qt::ControlModifier);
    ASSERT_TRUE(topIs("New event"));
    settle();
    type(QStringLiteral("Concert"));
    const auto day = environment.text(environment->now()).substr(0, 10);

    open(QStringLiteral("Date,"), "Date");
    press(Qt::Key_Down);
    press(Qt::Key_Right);
    press(Qt::Key_Down);
    press(Qt::Key_Escape);
    ASSERT_TRUE(topIs("New event"));
    settle();

    open(QStringLiteral("Repeat,"), "Repeat");
    walkTo(QStringLiteral("Weekly"));
    press(Qt::Key_Return);
    ASSERT_TRUE(topIs("New event"));
    settle();

    open(QStringLiteral("Alerts,"), "Alerts");
    walkTo(QStringLiteral("On Event"));
    press(Qt::Key_Space);
    walkTo(QStringLiteral("Add alert before"));
    press(Qt::Key_Return);
    ASSERT_TRUE(topIs("Alert"));
    settle();
    press(Qt::Key_Down);
    press(Qt::Key_Return, Qt::ControlModifier);
    ASSERT_TRUE(topIs("Alerts"));
    settle();
    press(Qt::Key_Return, Qt::ControlModifier);
    ASSERT_TRUE(topIs("New event"));
    settle();
    press(Qt::Key_Return, Qt::ControlModifier);
    ASSERT_TRUE(until([&] { return shell.navigation().modalStacks().empty(); }));

    ASSERT_EQ(names(), std::vector<std::string>{"Concert"});
    const auto made = EventLocalStore::shared().allEvents().front();
    EXPECT_EQ(day, "2026-03-10");
    EXPECT_EQ(environment.text(made->date()).substr(0, 10), "2026-03-18") << "a day on and a week down";
    EXPECT_EQ(made->rrule(), "FREQ=WEEKLY;INTERVAL=1");
    ASSERT_EQ(made->alerts().list->size(), 2U);
    EXPECT_EQ(made->alerts().list->front(), XDIDateInterval());
    EXPECT_EQ(made->alerts().list->back(), XDIDateInterval(CalendarUnit::hour, 2));
}

TEST_F(EditorFlows, goThroughTheYearsOfTheCalendar) {
    openEditor();
    const auto day = [&] { return environment.text(top<DateTimesViewController>().date()).substr(0, 10); };
    open(QStringLiteral("Date,"), "Date");
    press(Qt::Key_Down);
    press(Qt::Key_PageUp);
    EXPECT_EQ(day(), "2026-02-10");
    press(Qt::Key_PageUp, Qt::ShiftModifier);
    press(Qt::Key_PageUp, Qt::ShiftModifier);
    EXPECT_EQ(day(), "2024-02-10");
    for (int days = 0; days < 19; ++days) press(Qt::Key_Right);
    EXPECT_EQ(day(), "2024-02-29");
    press(Qt::Key_PageDown, Qt::ShiftModifier);
    EXPECT_EQ(day(), "2025-02-28") << "the last day of a month that is too short";

    click(QStringLiteral("Previous month"));
    EXPECT_EQ(day(), "2025-02-28");
    press(Qt::Key_Left);
    EXPECT_EQ(day(), "2025-02-27");
    EXPECT_TRUE(until([&] { return item(QStringLiteral("February 2025")) != nullptr; })) << "what is picked is in sight";

    click(QStringLiteral("February 2025"));
    click(QStringLiteral("2024"));
    EXPECT_TRUE(until([&] { return day() == "2024-02-27"; }));
    settle();
    click(QStringLiteral("April"));
    EXPECT_TRUE(until([&] { return day() == "2024-04-27"; }));
    settle();
    press(Qt::Key_Up);
    EXPECT_EQ(day(), "2023-04-27") << "the wheel of years has the keyboard";
    click(QStringLiteral("April 2023"));
    press(Qt::Key_Left);
    EXPECT_EQ(day(), "2023-04-26");
}

TEST_F(EditorFlows, comeBackToTodaysMonth) {
    openEditor();
    open(QStringLiteral("Date,"), "Date");
    press(Qt::Key_Down);
    press(Qt::Key_Right);
    click(QStringLiteral("Previous month"));
    ASSERT_TRUE(until([&] { return item(QStringLiteral("February 2026")) != nullptr; }));
    click(QStringLiteral("Today"));
    EXPECT_TRUE(until([&] { return item(QStringLiteral("March 2026")) != nullptr; }));
}

TEST_F(EditorFlows, moveTheRingOfTodayAtMidnight) {
    environment.clock->set(environment.at("2026-03-20T23:59:58"));
    auto concert = std::make_shared<HHEvent>("concert");
    concert->setDate(environment.at("2026-03-15"));
    openEditor(concert);
    open(QStringLiteral("Date,"), "Date");
    const auto hasRing = [&](const QString& day) {
        const QQuickItem* const text = item(day);
        return text != nullptr && text->parentItem()->property("today").toBool();
    };
    const auto second = [&] {
        environment.clock->advance(TimeInterval(1));
        environment->notifications().post(HHAppTimerKeys::everySecound, nullptr);
    };
    ASSERT_TRUE(until([&] { return item(QStringLiteral("20")) != nullptr; }));
    second();
    EXPECT_TRUE(hasRing(QStringLiteral("20")));
    EXPECT_FALSE(hasRing(QStringLiteral("21")));
    second();
    EXPECT_FALSE(hasRing(QStringLiteral("20")));
    EXPECT_TRUE(hasRing(QStringLiteral("21")));
}

TEST_F(EditorFlows, showACategorysIconWhole) {
    const auto category = std::make_shared<EventCategory>("work");
    shell.navigation().present(std::make_shared<CategoryViewController>(category));
    settle();
    const auto isWhole = [&](const QString& row) {
        const QQuickItem* const picture = itemIn(rowOf(row), "loaded", QStringLiteral("true"));
        return picture != nullptr && picture->property("whole").toBool();
    };
    EXPECT_TRUE(isWhole(QStringLiteral("Icon")));
    EXPECT_FALSE(isWhole(QStringLiteral("Background")));
}

TEST_F(EditorFlows, keepTheTextsOfTheCategoryClearOfItsRing) {
    openEditor();
    QQuickItem* const button = item(QStringLiteral("Category: Default"));
    ASSERT_NE(button, nullptr);
    const auto* const ring = button->property("background").value<QQuickItem*>();
    const QQuickItem* const label = itemIn(button, "text", QStringLiteral("Category"));
    ASSERT_TRUE(ring != nullptr && label != nullptr);
    constexpr double kClear = 4;
    EXPECT_GE(label->mapToScene({}).x(), ring->mapToScene({}).x() + kClear);
}

TEST_F(EditorFlows, turnASwitchBothWaysByKeyboardAndMouse) {
    auto birthday = std::make_shared<HHEvent>("birthday");
    birthday->setRrule("FREQ=YEARLY;INTERVAL=1");
    const auto editor = openEditor(birthday);
    walkTo(QStringLiteral("Show age"));
    press(Qt::Key_Space);
    EXPECT_TRUE(editor->state().showAge);
    press(Qt::Key_Space);
    EXPECT_FALSE(editor->state().showAge);

    auto* const drawn = itemIn(rowOf(QStringLiteral("Show age")), "checkable", QStringLiteral("true"));
    ASSERT_NE(drawn, nullptr);
    QTest::mouseClick(quick, Qt::LeftButton, {}, Flows::middleOf(drawn));
    EXPECT_TRUE(editor->state().showAge);
    EXPECT_TRUE(drawn->property("checked").toBool());
    QTest::mouseClick(quick, Qt::LeftButton, {}, Flows::middleOf(drawn));
    EXPECT_FALSE(editor->state().showAge);
}

TEST_F(EditorFlows, showTheKeyboardThatTakesOverFromTheHand) {
    openEditor();
    click(QStringLiteral("New event"));
    ASSERT_FALSE(showsFocus(*quick->contentItem()));
    press(Qt::Key_Tab);
    EXPECT_TRUE(until([&] { return showsFocus(*quick->contentItem()); }));
}

TEST_F(EditorFlows, putARowThatComesWhereItBelongs) {
    chooseYearly();
    settle();
    settle();
    const auto* const above = rowOf(QStringLiteral("Repeat"));
    EXPECT_EQ(above->y() + above->height(), rowOf(QStringLiteral("Show age"))->y());
}

TEST_F(EditorFlows, layRowsThatGrowWhileTheyComeBelowOneAnother) {
    chooseYearly();
    window.appearance().setTextScale(1.5);
    settle();
    settle();
    expectRowsBelowOneAnother(*rowOf(QStringLiteral("Show age"))->parentItem());
}

TEST_F(EditorFlows, putTheKeyboardWhereTypingBegins) {
    auto event = std::make_shared<HHEvent>("party");
    event->setName("Party");
    EventLocalStore::shared().updateEvent(event);
    const auto editor = openEditor(event);
    type(QStringLiteral("zzz"));
    EXPECT_EQ(editor->state().name, "Party") << "an event that is there is not renamed by a stray key";
    open(QStringLiteral("Note"), "Note");
    type(QStringLiteral("Cake"));
    press(Qt::Key_Return, Qt::ControlModifier);
    ASSERT_TRUE(topIs("Event"));
    EXPECT_EQ(editor->state().note, "Cake");
    settle();
    press(Qt::Key_Escape);
    ASSERT_TRUE(until([&] { return shell.navigation().modalStacks().empty(); }));
    EXPECT_EQ(EventLocalStore::shared().eventByIdentifier("party")->note(), std::nullopt);
}

TEST_F(EditorFlows, turnAWheelByOnePlaceForANotchOfTheMouse) {
    XDIDateInterval picked;
    shell.navigation().present(std::make_shared<PeriodExViewController>(
        XDIDateInterval(CalendarUnit::hour, 5), [&](const XDIDateInterval& duration) { picked = duration; }));
    settle();
    const QPoint middle = middleOf(QStringLiteral("5"));
    QWheelEvent turn(middle, quick->mapToGlobal(middle), {}, {0, -120}, {}, {}, Qt::NoScrollPhase, false);
    QCoreApplication::sendEvent(quick, &turn);
    for (int rest = 0; rest < 4; ++rest) settle();
    press(Qt::Key_Escape);
    EXPECT_TRUE(until([&] { return picked.getSingleValue() != 0; }));
    EXPECT_EQ(picked, XDIDateInterval(CalendarUnit::hour, 6));
}

TEST_F(EditorFlows, takeBackWhatWasTypedIntoANote) {
    const auto editor = openEditor();
    open(QStringLiteral("Note"), "Note");
    type(QStringLiteral("Cake"));
    for (int letter = 0; letter < 4; ++letter) press(Qt::Key_Backspace);
    press(Qt::Key_Escape);
    ASSERT_TRUE(topIs("New event"));
    EXPECT_EQ(editor->state().note.value_or(""), "");
}

TEST_F(EditorFlows, nameANewCategoryAtOnce) {
    shell.navigation().present(std::make_shared<CategoriesViewController>());
    settle();
    click(QStringLiteral("Edit"));
    click(QStringLiteral("New category"));
    ASSERT_TRUE(topIs("Category"));
    settle();
    type(QStringLiteral("Work"));
    press(Qt::Key_Escape);
    ASSERT_TRUE(topIs("Categories"));
    EXPECT_TRUE(until([&] { return item(QStringLiteral("Work")) != nullptr; }));
}

TEST_F(EditorFlows, openAPanelWhileTheLastOneGoes) {
    const auto screen = std::make_shared<DefaultValuesViewController>();
    shell.navigation().present(screen);
    settle();
    const auto openTime = [&] { screen->select(*screen->pathOfRow("time")); };
    openTime();
    settle();
    const QPointer<ScreenItem> first = panel();
    ASSERT_NE(first, nullptr);
    shell.goBack();
    openTime();
    const QPointer<ScreenItem> second = panel();
    settle();
    EXPECT_EQ(first, nullptr);
    shell.goBack();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_NE(second, nullptr) << "it is drawn until it is out of sight";
    settle();
    EXPECT_EQ(second, nullptr);
}

TEST_F(EditorFlows, closeAPanelByATapBesideItAndNothingElse) {
    shell.navigation().present(std::make_shared<DefaultValuesViewController>());
    settle();
    const QPoint units = middleOf(QStringLiteral("Units"));
    for (const bool byFinger : {false, true}) {
        click(QStringLiteral("Time"));
        ASSERT_TRUE(until([&] { return panel() != nullptr; }));
        settle();
        byFinger ? drag(units, {}) : QTest::mouseClick(quick, Qt::LeftButton, {}, units);
        EXPECT_TRUE(until([&] { return panel() == nullptr; }));
        settle();
        EXPECT_EQ(shell.navigation().topScreen()->title(), "Default Values");
    }
}

TEST_F(EditorFlows, aTapOnAPanelsBarIsNoTapBesideIt) {
    shell.navigation().present(std::make_shared<DefaultValuesViewController>());
    settle();
    click(QStringLiteral("Time"));
    ASSERT_TRUE(until([&] { return panel() != nullptr; }));
    settle();
    const QPoint beside(quick->width() / 2, middleOf(QStringLiteral("Done")).y());
    QTest::mouseClick(quick, Qt::LeftButton, {}, beside);
    settle();
    EXPECT_NE(panel(), nullptr);
}

TEST_F(EditorFlows, takeADroppedPictureUprightAndSmall) {
    const auto editor = openEditor();
    const QString file = pictureFile({2000, 1000});
    click(QStringLiteral("Icon"));
    ASSERT_TRUE(topIs("Icon"));
    settle();
    drop(file);
    ASSERT_TRUE(topIs("New event"));
    const auto icon = std::dynamic_pointer_cast<ImageEventIconPicture>(editor->state().icon);
    ASSERT_TRUE(icon);
    EXPECT_EQ(icon->image()->width(), 512);
    EXPECT_EQ(icon->image()->height(), 256);
}

TEST_F(EditorFlows, takeAPictureDroppedOnTheEditorAsTheBackground) {
    const auto editor = openEditor();
    drop(pictureFile({3000, 1500}));
    ASSERT_TRUE(until([&] { return ownBackground(*editor) != nullptr; }));
    EXPECT_EQ(ownBackground(*editor)->image()->width(), 2048);
    press(Qt::Key_Return, Qt::ControlModifier);
    ASSERT_TRUE(until([&] { return EventLocalStore::shared().itemsCount() == 1; }));
    const auto event = EventLocalStore::shared().allEvents().front();
    EXPECT_TRUE(std::dynamic_pointer_cast<ImageEventBackgroundPicture>(event->background()));
}

TEST_F(EditorFlows, offerAPictureDroppedOnAnEventInItsEditor) {
    store("party", "Party", "2026-03-20");
    quick->resize(1000, 800);
    ASSERT_TRUE(until([&] { return shell.hasDetailPane(); }));
    settle();
    const QString file = pictureFile({300, 200});
    const QPoint onTheDetail(quick->width() - 30, quick->height() / 2);
    drop(file, onTheDetail);
    ASSERT_TRUE(topIs("Event"));
    const auto editor = std::dynamic_pointer_cast<EventEditViewController>(shell.navigation().topScreen());
    ASSERT_TRUE(editor && until([&] { return ownBackground(*editor) != nullptr; }));
    settle();
    drop(file, onTheDetail);
    EXPECT_EQ(shell.navigation().modalStacks().size(), 1U) << "what lies under a sheet takes nothing";
    press(Qt::Key_Escape);
    ASSERT_TRUE(until([&] { return shell.navigation().modalStacks().empty(); }));
    EXPECT_FALSE(EventLocalStore::shared().eventByIdentifier("party")->background()) << "only Done writes";
}

TEST_F(EditorFlows, tellOfADroppedFileThatIsNoPicture) {
    const auto editor = openEditor();
    const QString path = scratch.filePath(QStringLiteral("text.png"));
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly) && file.write("no picture") > 0);
    file.close();
    click(QStringLiteral("Icon"));
    ASSERT_TRUE(topIs("Icon"));
    settle();
    drop(path);
    EXPECT_TRUE(until([&] { return item(QStringLiteral("Choose a PNG or JPEG file.")) != nullptr; }));
    EXPECT_FALSE(editor->state().icon);
}

TEST_F(EditorFlows, turnNumbersOverByADragAlongThem) {
    const auto screen = std::make_shared<RRuleExViewController>("FREQ=YEARLY;INTERVAL=1;BYMONTH=2",
                                                                EventStart{environment->now(), {0}}, [](auto&) {});
    shell.navigation().present(screen);
    settle();
    screen->select(*screen->pathOfRow("months"));
    settle();
    const QPoint from = middleOf(QStringLiteral("Jan"));
    const QPoint to = middleOf(QStringLiteral("Apr"));
    ASSERT_FALSE(from.isNull() || to.isNull());
    QTest::mousePress(quick, Qt::LeftButton, {}, from);
    for (int step = 1; step <= 40; ++step) QTest::mouseMove(quick, from + (to - from) * step / 40, 2);
    QTest::mouseRelease(quick, Qt::LeftButton, {}, to);
    EXPECT_EQ(screen->rrule(), "FREQ=YEARLY;INTERVAL=1;BYMONTH=1,3,4");
    QTest::mouseClick(quick, Qt::LeftButton, {}, to);
    EXPECT_EQ(screen->rrule(), "FREQ=YEARLY;INTERVAL=1;BYMONTH=1,3");
}

}  // namespace dayward

// A user's hands on the window, drawn without a display: mouse, keyboard and fingers.
#pragma once

#include <QAccessible>
#include <QPointingDevice>
#include <QQuickItem>
#include <QQuickWindow>
#include <QTest>

#include "Classes/Event/EventLocalStore.h"
#include "Classes/Event/HHEvent.h"
#include "Classes/Settings/AppSettings.h"
#include "shell/ShellFixture.h"

namespace dayward {

class Flows : public ShellFixture {
protected:
    explicit Flows(EventScreensServices services = {}, TestEnvironment::Options options = {})
        : ShellFixture(std::move(options)),
          shell(*environment),
          window(*environment, shell),
          split(shell.navigation(), withSharing(std::move(services))) {
        quick = window.quickWindow();
        if (quick == nullptr) throw std::runtime_error("the window cannot be loaded");
        quick->resize(400, 800);
        window.setRootViewController(split.master());
        window.makeKeyAndVisible();
        EXPECT_TRUE(until([&] { return quick->isExposed(); }));
    }

    EventScreensServices withSharing(EventScreensServices services) {
        if (services.share == nullptr) services.share = &shell.shareServices();
        return services;
    }
    /// A visible item in the window that is spoken or labelled so.
    [[nodiscard]] QQuickItem* item(const QString& text) const { return itemIn(quick->contentItem(), "text", text); }
    /// The field to type in that says so while it is empty.
    [[nodiscard]] QQuickItem* field(const QString& placeholder) const {
        return itemIn(quick->contentItem(), "placeholder", placeholder);
    }
    static QQuickItem* itemIn(QQuickItem* parent, const char* property, const QString& text) {
        // What lies on top comes last.
        const QList<QQuickItem*> children = parent->childItems();
        for (auto child = children.crbegin(); child != children.crend(); ++child) {
            if (!(*child)->isVisible()) continue;
            if (QQuickItem* found = itemIn(*child, property, text)) return found;
            if ((*child)->property(property).toString() == text && (*child)->width() > 0) return *child;
        }
        return nullptr;
    }
    void click(const QString& text) {
        ASSERT_TRUE(until([&] { return item(text) != nullptr; })) << text.toStdString();
        settle();
        QTest::mouseClick(quick, Qt::LeftButton, {}, middleOf(text));
    }
    /// In the window.
    [[nodiscard]] QPoint middleOf(const QString& text) const { return middleOf(item(text)); }
    static QPoint middleOf(const QQuickItem* target) {
        return target != nullptr ? target->mapToScene({target->width() / 2, target->height() / 2}).toPoint() : QPoint();
    }
    void tap(const QString& text) {
        ASSERT_TRUE(until([&] { return item(text) != nullptr; })) << text.toStdString();
        settle();
        drag(middleOf(text), {});
    }
    /// One finger goes down, moves on by that much in small steps and rests before it goes up.
    void drag(QPoint from, QPoint by) {
        constexpr int kSteps = 24;
        QTest::touchEvent(quick, finger).press(0, from);
        for (int step = 1; step <= kSteps && !by.isNull(); ++step) {
            QTest::touchEvent(quick, finger).move(0, from + by * step / kSteps);
            QTest::qWait(8);
        }
        QTest::touchEvent(quick, finger).release(0, from + by);
    }
    void dragByMouse(QPoint from, QPoint by) {
        constexpr int kSteps = 24;
        QTest::mousePress(quick, Qt::LeftButton, {}, from);
        for (int step = 1; step <= kSteps; ++step) QTest::mouseMove(quick, from + by * step / kSteps, 8);
        QTest::mouseRelease(quick, Qt::LeftButton, {}, from + by);
    }
    void press(Qt::Key key, Qt::KeyboardModifiers modifiers = {}) { QTest::keyClick(quick, key, modifiers); }
    /// Goes down from row to row until the focus is on the one that is spoken so, or begins so.
    void walkTo(const QString& spoken) {
        for (int step = 0; step < 40; ++step) {
            if (focusIsOn(spoken)) return;
            press(Qt::Key_Down);
            QCoreApplication::processEvents();
        }
        ADD_FAILURE() << "the keyboard does not come to " << spoken.toStdString();
    }
    [[nodiscard]] bool focusIsOn(const QString& spoken) const {
        for (QQuickItem* item = quick->activeFocusItem(); item != nullptr; item = item->parentItem()) {
            if (spokenOf(*item).startsWith(spoken)) return true;
        }
        return false;
    }
    [[nodiscard]] static QString spokenOf(QQuickItem& item) {
        auto* const accessible = QAccessible::queryAccessibleInterface(&item);
        return accessible != nullptr ? accessible->text(QAccessible::Name) : QString();
    }
    void type(const QString& text) {
        for (const QChar letter : text) QTest::keyClick(quick, letter.toLatin1());
    }
    /// Lets the moves of pages and rows end.
    static void settle() { QTest::qWait(350); }
    [[nodiscard]] static std::vector<std::string> names() {
        std::vector<std::string> all;
        for (const auto& event : EventLocalStore::shared().allEvents()) all.push_back(event->name().value_or(""));
        return all;
    }
    bool topIs(const std::string& title) {
        return until([&] { return shell.navigation().topScreen()->title() == title; });
    }
    std::shared_ptr<HHEvent> store(const std::string& key, const std::string& name, const std::string& date) {
        auto event = std::make_shared<HHEvent>(key);
        event->setName(name);
        event->setDate(environment.at(date));
        EventLocalStore::shared().updateEvent(event);
        return event;
    }
    static void sortBy(EventSortType type) { AppSettings::setTableSortType(static_cast<std::int64_t>(type)); }
    /// The rows of the list as the user sees them, from above.
    [[nodiscard]] QStringList shownRows() const {
        QStringList rows;
        const EventListTable& table = split.master()->activeTable();
        for (std::size_t section = 0; section < table.numberOfSections(); ++section) {
            for (std::size_t row = 0; row < table.numberOfRowsInSection(section); ++row) {
                rows.append(QString::fromStdString(table.event({section, row})->name().value_or("")));
            }
        }
        return rows;
    }
    void addEvent(const QString& name) {
        press(Qt::Key_N, Qt::ControlModifier);
        EXPECT_TRUE(topIs("New event"));
        settle();
        click(QStringLiteral("Event name"));
        type(name);
        click(QStringLiteral("Done"));
        EXPECT_TRUE(until([&] { return shell.navigation().modalStacks().empty(); }));
    }

    Shell shell;
    QtWindow window;
    HHSplitViewController split;
    QQuickWindow* quick = nullptr;
    QPointingDevice* const finger = QTest::createTouchDevice();
};

}  // namespace dayward

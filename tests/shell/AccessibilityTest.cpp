// What who cannot see the screen, or has no pointer, gets of it: names, roles, sentences, the way of Tab.
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPointer>
#include <QQmlComponent>
#include <QRegularExpression>
#include <algorithm>
#include <set>

#include "Classes/App/EventFactory.h"
#include "Classes/Interface/Edit/EventEditViewController.h"
#include "Classes/Interface/Edit/NoteViewController.h"
#include "Classes/Interface/Info/SettingsViewController.h"
#include "platform/Strings.h"
#include "shell/FlowsFixture.h"
#include "shell/Scenes.h"
#include "shell/ScreenTour.h"

namespace dayward {

namespace {

using Items = std::vector<QPointer<QQuickItem>>;

bool hasHandler(const QQuickItem& item) {
    return std::ranges::any_of(item.children(), [](const QObject* child) {
        return child->inherits("QQuickTapHandler") && child->property("enabled").toBool();
    });
}

/// Whether the keyboard or a finger does something here.
bool isControl(const QQuickItem& item) {
    if (!item.isEnabled()) return false;
    const bool isKnownKind = item.inherits("QQuickAbstractButton") || item.inherits("QQuickTextInput") ||
                             item.inherits("QQuickTextEdit") || item.inherits("QQuickTumbler");
    return isKnownKind || item.activeFocusOnTab() || hasHandler(item);
}

void collect(QQuickItem& item, const std::function<bool(const QQuickItem&)>& isWanted, Items& found) {
    if (!item.isVisible() || item.width() <= 0 || item.height() <= 0) return;
    if (isWanted(item)) found.emplace_back(&item);
    for (QQuickItem* child : item.childItems()) collect(*child, isWanted, found);
}

/// All that a screen reader is told of.
using Spoken = std::set<const QObject*>;

void collectSpoken(QAccessibleInterface& parent, Spoken& found) {
    for (int place = 0; place < parent.childCount(); ++place) {
        QAccessibleInterface* const child = parent.child(place);
        if (child != nullptr && found.insert(child->object()).second) collectSpoken(*child, found);
    }
}

Spoken spokenIn(QQuickWindow& window) {
    Spoken found;
    collectSpoken(*QAccessible::queryAccessibleInterface(&window), found);
    return found;
}

/// The item itself or the one that speaks for it.
QAccessibleInterface* speakerOf(QQuickItem* item, const Spoken& spoken) {
    while (item != nullptr && !spoken.contains(item)) item = item->parentItem();
    return item != nullptr ? QAccessible::queryAccessibleInterface(item) : nullptr;
}

bool isRoleOfAControl(QAccessible::Role role) {
    switch (role) {
        case QAccessible::NoRole:
        case QAccessible::Client:
        case QAccessible::Window:
        case QAccessible::Pane:
        case QAccessible::LayeredPane:
        case QAccessible::ToolBar: return false;
        default: return true;
    }
}

/// A line for messages.
std::string describe(const QQuickItem& item) {
    std::string line = item.metaObject()->className();
    for (const char* property : {"text", "symbol", "placeholder"}) {
        const std::string value = item.property(property).toString().toStdString();
        if (!value.empty()) line += std::string(" ") + property + "=\"" + value + "\"";
    }
    return line;
}

QQuickItem* listAround(const QQuickItem* item) {
    QQuickItem* list = item->parentItem();
    while (list != nullptr && !list->inherits("QQuickListView")) list = list->parentItem();
    return list;
}

double heightInList(const QQuickItem& item, const QQuickItem& list) {
    return item.mapToItem(&list, {0, 0}).y() + list.property("contentY").toDouble();
}

}  // namespace

QQuickItem* rowAround(const QQuickItem* item) {
    const QQuickItem* const list = listAround(item);
    while (item != nullptr && list != nullptr && item->parentItem()->parentItem() != list) item = item->parentItem();
    return list != nullptr ? const_cast<QQuickItem*>(item) : nullptr;
}

/// The same for a row that was out of sight in between, and is another item by now.
std::string identityOf(const QQuickItem& item, const QAccessibleInterface* spoken) {
    const QQuickItem* const row = rowAround(&item);
    const std::string name = spoken != nullptr ? spoken->text(QAccessible::Name).toStdString() : std::string();
    return describe(item) + " " + name +
           (row != nullptr ? " in row " + row->property("index").toString().toStdString() : "");
}

/// One screen, gone through by Tab from wherever the keyboard is until it comes back.
struct TabWalk {
    Items stops;
    std::set<const QObject*> reached;  ///< the stops and what they lie in
    bool isRound = false;
};

class Accessibility : public Flows {
protected:
    Accessibility() : Flows({}, {.locale = "ru_RU", .resources = builtResources()}) {
        EventLocalStore::shared().updateEvents(EventFactory::getDefaultEvents());
        settle();
    }

    /// Calls it for the list and the detail in all their states, and for every screen and open row that the
    /// editor and the settings lead to.
    void onEveryScreen(const std::function<void()>& look) {
        const auto lookCalmly = [&] {
            ASSERT_TRUE(until([this] { return isAtRest(); }));
            const std::string title = shell.navigation().topScreen()->title();
            const testing::ScopedTrace trace(__FILE__, __LINE__, "on the screen \"" + title + "\"");
            look();
        };
        Stage stage{shell, *split.master()};
        for (const Scene& scene : scenes()) {
            if (scene.name.starts_with("editor") || scene.name.starts_with("settings")) continue;
            scene.show(stage);
            lookCalmly();
            leaveAll(stage);
        }
        const auto root = shell.navigation().topScreen();
        shell.navigation().present(std::make_shared<EventEditViewController>(anyEvent()));
        tourScreens(shell, lookCalmly);
        shell.goBack();
        shell.navigation().present(std::make_shared<SettingsViewController>(SettingsViewController::Services{}));
        tourScreens(shell, lookCalmly);
        shell.goBack();
    }

    /// No page moves, and none that is to move waits.
    [[nodiscard]] bool isAtRest() const {
        QTest::qWait(30);
        Items moving;
        collect(
            *quick->contentItem(),
            [](const QQuickItem& item) { return item.property("busy").toBool() && item.inherits("QQuickStackView"); },
            moving);
        return moving.empty() && quick->activeFocusItem() != nullptr;
    }

    static std::shared_ptr<HHEvent> anyEvent() {
        const auto event = EventLocalStore::shared().allEvents().front();
        event->setNote("Взять паспорт");
        EventLocalStore::shared().updateEvent(event);
        return event;
    }

    [[nodiscard]] Items visibleControls() const {
        Items found;
        collect(*quick->contentItem(), isControl, found);
        return found;
    }

    /// The button with that text on it.
    [[nodiscard]] QQuickItem* button(const QString& text) const {
        QQuickItem* found = item(text);
        while (found != nullptr && !found->inherits("QQuickAbstractButton")) found = found->parentItem();
        return found;
    }

    /// Where the uppermost screen is drawn.
    [[nodiscard]] QQuickItem* topPage() {
        const auto top = shell.navigation().topScreen();
        Items found;
        collect(
            *quick->contentItem(),
            [&top](const QQuickItem& item) {
                const auto* screen = qobject_cast<ScreenItem*>(item.property("screen").value<QObject*>());
                return screen != nullptr && screen->screen() == top;
            },
            found);
        return found.empty() ? nullptr : found.front().data();
    }

    /// Each has a name in the user's language and a role.
    void checkNames(const Items& controls) const {
        const Spoken spoken = spokenIn(*quick);
        for (const auto& control : controls) {
            QAccessibleInterface* const speaker = speakerOf(control, spoken);
            ASSERT_NE(speaker, nullptr) << describe(*control);
            const QString name = speaker->text(QAccessible::Name);
            EXPECT_TRUE(isRoleOfAControl(speaker->role()))
                << describe(*control) << ": " << qAccessibleRoleString(speaker->role());
            EXPECT_FALSE(name.trimmed().isEmpty()) << describe(*control);
            EXPECT_FALSE(name.contains(QLatin1Char('\n'))) << name.toStdString();
            for (const QString& part : name.split(QRegularExpression(QStringLiteral("[,:] ")))) {
                EXPECT_FALSE(isEnglish(part)) << describe(*control) << " says " << name.toStdString();
            }
        }
    }

    TabWalk walkByTab() {
        constexpr std::size_t kMostStops = 300;
        TabWalk walk;
        std::set<std::string> known;
        std::string first;
        press(Qt::Key_Tab);
        while (walk.stops.size() < kMostStops && !walk.isRound) {
            QCoreApplication::processEvents();
            QQuickItem& stop = *quick->activeFocusItem();
            const Spoken spoken = spokenIn(*quick);
            const std::string identity = identityOf(stop, speakerOf(&stop, spoken));
            if (first.empty())
                first = identity;
            else if (!known.insert(identity).second)
                break;
            walk.isRound = identity == first && !known.empty();
            if (walk.isRound) break;
            walk.stops.emplace_back(&stop);
            for (const QQuickItem* item = &stop; item != nullptr; item = item->parentItem()) walk.reached.insert(item);
            EXPECT_TRUE(spoken.contains(&stop)) << describe(stop) << " has the keyboard and says nothing";
            checkStop(stop);
            press(Qt::Key_Tab);
        }
        return walk;
    }

    void checkStop(QQuickItem& stop) {
        const QQuickItem* const page = topPage();
        ASSERT_NE(page, nullptr);
        EXPECT_TRUE(page->isAncestorOf(&stop)) << describe(stop) << " lies under the screen";
        if (!drawnKinds_.insert(stop.metaObject()->className()).second) return;
        EXPECT_TRUE(showsFocus(stop)) << describe(stop);
    }

    /// A cursor, or pixels that change when it is no longer the keyboard that is in use.
    [[nodiscard]] bool showsFocus(const QQuickItem& item) const {
        if (item.property("cursorVisible").toBool()) return true;
        settle();
        const QRectF place = item.mapRectToScene(item.boundingRect()).adjusted(-4, -4, 4, 4);
        const QRect seen = place.toRect().intersected(QRect({0, 0}, quick->size()));
        const QImage with = quick->grabWindow().copy(seen);
        QObject nothing;
        QMouseEvent click(QEvent::MouseButtonPress, {}, {}, Qt::LeftButton, Qt::LeftButton, {});
        QCoreApplication::sendEvent(&nothing, &click);
        QCoreApplication::processEvents();
        const QImage without = quick->grabWindow().copy(seen);
        QKeyEvent key(QEvent::KeyPress, Qt::Key_Tab, {});
        QCoreApplication::sendEvent(&nothing, &key);
        return !seen.isEmpty() && with != without;
    }

    /// Every control that still exists has had the keyboard, or lies where the arrows go from one that has.
    static void checkReached(const Items& controls, const TabWalk& walk) {
        for (const auto& control : controls) {
            if (!control || !control->isVisible()) continue;
            const QQuickItem* home = control;
            while (home != nullptr && !home->activeFocusOnTab()) home = home->parentItem();
            EXPECT_TRUE(walk.reached.contains(home)) << describe(*control) << " is out of Tab's way";
        }
    }

    /// Within a list the keyboard goes down.
    static void checkOrder(const Items& stops) {
        for (std::size_t place = 1; place < stops.size(); ++place) {
            if (!stops[place] || !stops[place - 1]) continue;
            const QQuickItem* const list = listAround(stops[place]);
            if (list == nullptr || list != listAround(stops[place - 1])) continue;
            EXPECT_GE(heightInList(*stops[place], *list) + 30, heightInList(*stops[place - 1], *list))
                << describe(*stops[place]) << " comes after " << describe(*stops[place - 1]);
        }
    }

    /// A text that has a translation and stands there in English.
    [[nodiscard]] bool isEnglish(const QString& text) const {
        const std::string key = text.toStdString();
        return std::ranges::any_of(std::vector<std::string>{"Main", "Gallery", "XELLocale"}, [&](const auto& table) {
            return environment->strings().contains(key, table) && localized(key, table) != key;
        });
    }

private:
    void leaveAll(Stage& stage) {
        stage.list.setEditing(false);
        stage.list.endSearch();
        while (shell.navigation().screens(StackId::root).size() > 1 || shell.navigation().panel(StackId::root))
            shell.goBack();
        settle();
    }

    std::set<std::string> drawnKinds_;
};

TEST_F(Accessibility, everyControlIsNamedAndReachedByTab) {
    onEveryScreen([this] {
        const QQuickItem* const page = topPage();
        ASSERT_NE(page, nullptr);
        Items controls = visibleControls();
        const auto isBelow = [&](const auto& control) { return !page->isAncestorOf(control); };
        const Spoken spoken = spokenIn(*quick);
        for (const auto& control : controls) {
            EXPECT_FALSE(isBelow(control) && spoken.contains(control))
                << describe(*control) << " lies under the screen";
        }
        std::erase_if(controls, isBelow);
        checkNames(controls);
        const TabWalk walk = walkByTab();
        EXPECT_TRUE(walk.isRound) << "caught at " << describe(*quick->activeFocusItem());
        checkReached(controls, walk);
        checkOrder(walk.stops);
    });
}

TEST_F(Accessibility, aRowOfTheListIsOneSentence) {
    QAccessibleInterface* const row = speakerOf(item(QStringLiteral("День матери")), spokenIn(*quick));
    ASSERT_NE(row, nullptr);
    EXPECT_EQ(row->role(), QAccessible::ListItem);
    EXPECT_EQ(row->text(QAccessible::Name).toStdString(), "День матери, воскресенье, 10 мая, 61 День");
    EXPECT_EQ(row->childCount(), 0) << "its texts are not read a second time";
    row->actionInterface()->doAction(QAccessibleActionInterface::pressAction());
    EXPECT_TRUE(topIs("День матери"));
}

TEST_F(Accessibility, whatIsCoveredIsNotSpoken) {
    quick->resize(1000, 800);
    ASSERT_TRUE(until([this] { return shell.hasDetailPane(); }));
    settle();
    const QPointer<QQuickItem> row = rowAround(item(QStringLiteral("День матери")));
    const auto isSpoken = [this](const QQuickItem* item) { return spokenIn(*quick).contains(item); };
    ASSERT_TRUE(isSpoken(row));
    shell.navigation().present(std::make_shared<SettingsViewController>(SettingsViewController::Services{}));
    ASSERT_TRUE(until([this] { return item(QStringLiteral("Готово")) != nullptr; }));
    settle();
    const QPointer<QQuickItem> done = button(QStringLiteral("Готово"));
    ASSERT_TRUE(row && row->isVisible()) << "it is seen beside the sheet";
    EXPECT_FALSE(isSpoken(row));
    EXPECT_TRUE(isSpoken(done));
    shell.navigation().alert({.title = "Sure?", .message = "", .buttons = {{.title = "Yes"}}, .name = "question"});
    ASSERT_TRUE(until([this] { return item(QStringLiteral("Yes")) != nullptr; }));
    settle();
    const QPointer<QQuickItem> yes = button(QStringLiteral("Yes"));
    EXPECT_FALSE(isSpoken(done));
    EXPECT_TRUE(isSpoken(yes));
    press(Qt::Key_Tab);
    EXPECT_TRUE(yes->hasActiveFocus()) << "Tab leads out of the question";
    window.setCover(Color::white());
    EXPECT_FALSE(isSpoken(yes));
    window.setCover(std::nullopt);
    EXPECT_TRUE(isSpoken(yes));
    shell.navigation().dismissAlert("question");
    settle();
    EXPECT_TRUE(isSpoken(done));
    shell.goBack();
    settle();
    EXPECT_TRUE(isSpoken(row));
}

TEST_F(Accessibility, aNoticeThatCannotBeTakenIsNotSpoken) {
    shell.navigation().showNotice({.text = "Deleted", .actionTitle = "Undo", .shownFor = TimeInterval(60)});
    ASSERT_TRUE(until([this] { return item(QStringLiteral("Undo")) != nullptr; }));
    const QPointer<QQuickItem> undo = button(QStringLiteral("Undo"));
    const auto isSpoken = [this, undo] { return spokenIn(*quick).contains(undo); };
    EXPECT_TRUE(isSpoken());
    shell.navigation().present(std::make_shared<SettingsViewController>(SettingsViewController::Services{}));
    ASSERT_TRUE(until([this] { return item(QStringLiteral("Готово")) != nullptr; }));
    EXPECT_FALSE(isSpoken()) << "it lies under the sheet";
}

TEST_F(Accessibility, whatIsCoveredCannotBePointedAt) {
    const QPoint place = quick->mapToGlobal(middleOf(QStringLiteral("День матери")));
    const auto namePointedAt = [this, place] {
        QAccessibleInterface* found = QAccessible::queryAccessibleInterface(quick);
        while (QAccessibleInterface* const child = found->childAt(place.x(), place.y())) found = child;
        return found->text(QAccessible::Name);
    };
    EXPECT_TRUE(namePointedAt().startsWith(QStringLiteral("День матери")));
    window.setCover(Color::white());
    EXPECT_FALSE(namePointedAt().contains(QStringLiteral("День матери")));
}

class RightToLeft : public Flows {
protected:
    RightToLeft() : Flows({}, {.locale = "he_IL"}) {}

    [[nodiscard]] bool standsRight(const QString& text) const { return middleOf(text).x() > quick->width() / 2; }
};

TEST_F(RightToLeft, barsRowsAndSignsAreMirrored) {
    store("a", "Alpha", "2026-03-20");
    ASSERT_TRUE(until([&] { return item(QStringLiteral("Alpha")) != nullptr; }));
    settle();
    EXPECT_TRUE(standsRight(QStringLiteral("Settings")));
    EXPECT_FALSE(standsRight(QStringLiteral("New event")));
    EXPECT_FALSE(standsRight(QStringLiteral("10 Days")));
    EXPECT_EQ(item(QStringLiteral("Alpha"))->property("effectiveHorizontalAlignment").toInt(), Qt::AlignRight);
    const double start = item(QStringLiteral("Alpha"))->mapToScene({0, 0}).x();
    drag(middleOf(QStringLiteral("Alpha")), {110, 3});
    settle();
    EXPECT_GT(item(QStringLiteral("Alpha"))->mapToScene({0, 0}).x(), start + 40) << "a swipe uncovers the line's start";
    press(Qt::Key_Comma, Qt::ControlModifier);
    ASSERT_TRUE(topIs("Settings"));
    settle();
    EXPECT_TRUE(standsRight(QStringLiteral("Theme")));
    click(QStringLiteral("Theme"));
    ASSERT_TRUE(topIs("Theme"));
    settle();
    EXPECT_TRUE(standsRight(QStringLiteral("Back")));
    EXPECT_TRUE(itemIn(item(QStringLiteral("Back")), "name", QStringLiteral("back"))->property("mirror").toBool());
}

TEST_F(RightToLeft, aLongTitleStandsBetweenTheButtons) {
    const QString title = QStringLiteral("A title that needs all of the room");
    QVariantList buttons;
    for (const char* label : {"One", "Two", "Three"}) {
        buttons.append(QVariantMap{{"role", "done"}, {"label", label}, {"enabled", true}});
    }
    QQmlComponent component(&window.engine(), QUrl(QStringLiteral("qrc:/Dayward/TitleBar.qml")));
    const QVariantMap properties{{"width", 400}, {"title", title}, {"canGoBack", true}, {"buttons", buttons}};
    const std::unique_ptr<QObject> made(component.createWithInitialProperties(properties));
    qobject_cast<QQuickItem*>(made.get())->setParentItem(quick->contentItem());
    settle();
    const auto edge = [this](const QString& text, double share) {
        const QQuickItem* const found = item(text);
        return found->mapToScene({found->width() * share, 0}).x();
    };
    EXPECT_GE(edge(title, 0), edge(QStringLiteral("One"), 1));
    EXPECT_LE(edge(title, 1), edge(QStringLiteral("Back"), 0));
}

TEST_F(RightToLeft, whatIsTypedStandsWhereItsPlaceholderDid) {
    press(Qt::Key_N, Qt::ControlModifier);
    ASSERT_TRUE(topIs("New event"));
    settle();
    EXPECT_EQ(field(QStringLiteral("Event name"))->property("effectiveHorizontalAlignment").toInt(), Qt::AlignRight);
    shell.navigation().push(*shell.navigation().topScreen(),
                            std::make_shared<NoteViewController>("", [](const std::string&) {}));
    settle();
    const QQuickItem* const note = quick->activeFocusItem();
    ASSERT_TRUE(note->inherits("QQuickTextEdit"));
    EXPECT_EQ(note->property("effectiveHorizontalAlignment").toInt(), Qt::AlignRight);
}

}  // namespace dayward

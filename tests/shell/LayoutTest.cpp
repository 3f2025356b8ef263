// Texts find their room: names wrap before they are cut, and words are not broken.
#include <QQmlComponent>
#include <QQuickItem>
#include <QQuickWindow>
#include <QTest>

#include "shell/ShellFixture.h"

namespace dayward {

class Layout : public ShellFixture {
protected:
    Layout() : shell(*environment), window(*environment, shell) { window.quickWindow()->show(); }

    /// A file of the module with these properties, in the window.
    std::unique_ptr<QQuickItem> made(const QString& file, const QVariantMap& properties) {
        QQmlComponent component(&window.engine(), QUrl(QStringLiteral("qrc:/Dayward/") + file));
        std::unique_ptr<QQuickItem> item(qobject_cast<QQuickItem*>(component.createWithInitialProperties(properties)));
        EXPECT_NE(item, nullptr) << component.errorString().toStdString();
        item->setParentItem(window.quickWindow()->contentItem());
        QTest::qWait(30);
        return item;
    }
    /// The visible text item that says so.
    static QQuickItem* textIn(const QQuickItem& parent, const QString& text) {
        for (QQuickItem* child : parent.childItems()) {
            if (child->isVisible() && child->inherits("QQuickText") && child->property("text") == text) return child;
            if (QQuickItem* found = textIn(*child, text)) return found;
        }
        return nullptr;
    }

    Shell shell;
    QtWindow window;
};

TEST_F(Layout, aNameWrapsInARowBeforeItIsCut) {
    const QString name = QStringLiteral("The very last day of the school");
    const QVariantMap row{{"width", 366}, {"height", 76}, {"title", name}, {"date", "Sunday, June 28"}};
    const auto look = made(QStringLiteral("EventLook.qml"), row);
    look->setProperty("countdown", QStringLiteral("1 Hour 30 Min"));
    QTest::qWait(30);
    EXPECT_EQ(textIn(*look, name)->property("lineCount").toInt(), 2);
    EXPECT_FALSE(textIn(*look, name)->property("truncated").toBool());
}

TEST_F(Layout, aLongCountdownGoesBelowTheDate) {
    const QString countdown = QStringLiteral("1 Year 4 Months 1 Week 5 Days 12 Hours");
    const auto look = made(QStringLiteral("EventLook.qml"), {{"width", 366},
                                                             {"height", 76},
                                                             {"title", "Holiday"},
                                                             {"date", "Sunday, June 28"},
                                                             {"countdown", countdown}});
    const QQuickItem* const date = textIn(*look, QStringLiteral("Sunday, June 28"));
    EXPECT_GT(textIn(*look, countdown)->mapToScene({}).y(), date->mapToScene({}).y() + date->height() - 1);
    EXPECT_FALSE(textIn(*look, countdown)->property("truncated").toBool());
}

TEST_F(Layout, theCountdownMakesRoomForTheNameBesideButtons) {
    const auto look = made(QStringLiteral("EventLook.qml"),
                           {{"width", 316}, {"height", 76}, {"title", "Holiday"}, {"countdown", "110 Days"}});
    EXPECT_NE(textIn(*look, QStringLiteral("110 Days")), nullptr);
    look->setProperty("trailingSpace", 96);
    EXPECT_EQ(textIn(*look, QStringLiteral("110 Days")), nullptr);
}

TEST_F(Layout, aWordThatIsTooWideIsMadeSmallerAndNotBroken) {
    const QString text = QStringLiteral("Unbreakable words");
    const auto fitted = made(QStringLiteral("FittedText.qml"),
                             {{"width", 150}, {"text", text}, {"sizes", QVariantList{60, 40}}});
    ASSERT_TRUE(until([&] { return textIn(*fitted, text)->property("lineCount") == 2; }))
        << textIn(*fitted, text)->property("lineCount").toInt();
    EXPECT_LE(textIn(*fitted, text)->property("contentWidth").toDouble(), 150);
}

TEST_F(Layout, aFittedTextFollowsTheSizeOfTexts) {
    window.appearance().setTextScale(1);
    const QString word = QStringLiteral("Word");
    const auto fitted = made(QStringLiteral("FittedText.qml"),
                             {{"width", 300}, {"text", word}, {"sizes", QVariantList{20}}});
    const auto pixels = [&] { return textIn(*fitted, word)->property("font").value<QFont>().pixelSize(); };
    EXPECT_EQ(pixels(), 20);
    window.appearance().setTextScale(2);
    EXPECT_TRUE(until([&] { return pixels() == 40; })) << pixels();
}

}  // namespace dayward

// Pictures fitted to their places, and fonts that have the letters.
#include <QFontInfo>
#include <QGuiApplication>
#include <QQmlComponent>
#include <QQuickItem>
#include <QQuickWindow>
#include <QSignalSpy>
#include <QTest>
#include <thread>

#include "Classes/Interface/General/TextScrim.h"
#include "shell/EventLookItem.h"
#include "shell/Fonts.h"
#include "shell/PictureProvider.h"
#include "shell/PictureSource.h"
#include "shell/QtImages.h"
#include "shell/QtValues.h"
#include "shell/ShellFixture.h"

namespace dayward {

namespace {

/// Red on the left half, blue on the right.
std::shared_ptr<const Image> halves(int width, int height) {
    Data bytes;
    for (int pixel = 0; pixel < width * height; ++pixel) {
        const bool isLeft = pixel % width < width / 2;
        for (const int part : {isLeft ? 255 : 0, 0, isLeft ? 0 : 255, 255}) {
            bytes.push_back(static_cast<std::uint8_t>(part));
        }
    }
    return std::make_shared<const Image>(width, height, std::move(bytes));
}

Image filled(const Color& color) {
    Data bytes;
    for (int pixel = 0; pixel < 64; ++pixel) {
        for (const double part : {color.red, color.green, color.blue, 1.0}) {
            bytes.push_back(static_cast<std::uint8_t>(part * 255 + 0.5));
        }
    }
    return {8, 8, std::move(bytes)};
}

}  // namespace

class PicturesOfTheShell : public ShellFixture {};

TEST_F(PicturesOfTheShell, fillTheirPlaceOrStandWholeInIt) {
    Pictures pictures;
    ASSERT_EQ(pictures.add({"a/b c", [] { return halves(400, 100); }}), "a%2Fb%20c");
    const QImage filled = pictures.picture("a/b c", {{50, 50}, Pictures::Fit::fill, 0});
    EXPECT_EQ(filled.size(), QSize(50, 50));
    EXPECT_EQ(filled.pixelColor(2, 2), QColor(Qt::red));
    EXPECT_EQ(filled.pixelColor(47, 47), QColor(Qt::blue));
    const QImage whole = pictures.picture("a/b c", {{50, 50}, Pictures::Fit::inside, 0});
    EXPECT_EQ(whole.pixelColor(25, 2).alpha(), 0);
    EXPECT_EQ(whole.pixelColor(4, 25), QColor(Qt::red));
    const QImage rounded = pictures.picture("a/b c", {{50, 50}, Pictures::Fit::fill, 20});
    EXPECT_EQ(rounded.pixelColor(0, 0).alpha(), 0);
    EXPECT_EQ(rounded.pixelColor(10, 25), QColor(Qt::red));
}

TEST_F(PicturesOfTheShell, areReadOnceForAPlaceAndAreNothingWhereTheyCannotBe) {
    Pictures pictures;
    int reads = 0;
    pictures.add({"a", [&reads] { return ++reads, halves(10, 10); }});
    pictures.add({"broken", [] { return std::shared_ptr<const Image>(); }});
    EXPECT_EQ(pictures.picture("a", {{5, 5}}), pictures.picture("a", {{5, 5}}));
    EXPECT_EQ(reads, 1);
    pictures.remove("a");
    EXPECT_TRUE(pictures.picture("a", {{5, 5}}).isNull());
    EXPECT_TRUE(pictures.picture("broken", {{5, 5}}).isNull());
    EXPECT_TRUE(pictures.picture("unknown", {{5, 5}}).isNull());
    EXPECT_TRUE(pictures.add({"", {}}).isEmpty());
}

TEST_F(PicturesOfTheShell, thatStandReadyComeToWhoListensLate) {
    const TestEnvironment manual;
    Pictures pictures;
    pictures.add({"a", [] { return halves(10, 10); }});
    PictureProvider provider(*manual, pictures);
    const std::unique_ptr<QQuickImageResponse> response(provider.requestImageResponse("fill/0/a", {5, 5}));
    std::thread([&] { manual.queues->runAll(); }).join();
    bool isFinished = false;
    QObject::connect(response.get(), &QQuickImageResponse::finished, [&] { isFinished = true; });
    ASSERT_TRUE(until([&] { return isFinished; }));
    const std::unique_ptr<QQuickTextureFactory> picture(response->textureFactory());
    EXPECT_EQ(picture->textureSize(), QSize(5, 5));
}

TEST_F(PicturesOfTheShell, areFoundByKeyAndPlaceOnceThePlaceHasASize) {
    PictureSource source;
    const QSignalSpy told(&source, &PictureSource::urlChanged);
    source.setProperty("key", "a%20b");
    EXPECT_TRUE(source.url().isEmpty());
    source.setProperty("hasSize", true);
    EXPECT_EQ(source.url(), QUrl("image://pictures/fill/0/a%20b"));
    source.setProperty("radius", 14);
    source.setProperty("whole", true);
    EXPECT_EQ(source.url(), QUrl("image://pictures/inside/14/a%20b"));
    source.setProperty("key", QString());
    EXPECT_TRUE(source.url().isEmpty());
    EXPECT_EQ(told.count(), 4);
}

TEST_F(PicturesOfTheShell, keepTheirPixelsOnTheWayToQtAndBack) {
    const auto image = halves(3, 2);
    EXPECT_EQ(coreImage(qtImage(*image)), *image);
    EXPECT_TRUE(qtImage(Image()).isNull());
}

TEST_F(PicturesOfTheShell, fontsChangeForLettersThatTheyDoNotHave) {
    const QStringList latin = fontNamed("ChalkboardSE-Bold", 20, "Birthday").families();
    const QStringList cyrillic = fontNamed("ChalkboardSE-Bold", 20, "День").families();
    EXPECT_EQ(latin.front(), "Comic Neue");
    EXPECT_NE(cyrillic.front(), "Comic Neue");
    EXPECT_EQ(fontNamed("", 20).family(), kInterfaceFamily);
    EXPECT_EQ(fontNamed("no such font", 0).pixelSize(), 1);
}

TEST_F(PicturesOfTheShell, aLookWritesItsTitleInAFontThatCanAndFadesItsScrimToTheEdges) {
    EventLookItem look;
    const QSignalSpy fonts(&look, &EventLookItem::titleFontChanged);
    look.setProperty("fontName", "ChalkboardSE-Bold");
    look.setProperty("titleSize", 30);
    look.setProperty("title", "Birthday");
    EXPECT_EQ(look.titleFont(), fontNamed("ChalkboardSE-Bold", 30, "Birthday"));
    EXPECT_EQ(fonts.count(), 2);
    look.setProperty("title", "День");
    EXPECT_EQ(look.titleFont(), fontNamed("ChalkboardSE-Bold", 30, "День"));
    look.setProperty("scrim", QColor(0, 0, 0, 100));
    EXPECT_EQ(look.faintScrim().alpha(), 60);
}

/// The look of an event as a row draws it, without its texts, over each kind of ground.
TEST_F(PicturesOfTheShell, leaveTextsReadableWhereTheyStand) {
    Shell shell(*environment);
    QtWindow window(*environment, shell);
    ASSERT_NE(window.quickWindow(), nullptr);
    window.quickWindow()->resize(400, 200);
    window.quickWindow()->show();
    QQmlComponent component(&window.engine(), QUrl(QStringLiteral("qrc:/Dayward/EventLook.qml")));
    const std::unique_ptr<QQuickItem> look(qobject_cast<QQuickItem*>(component.create()));
    ASSERT_NE(look, nullptr) << component.errorString().toStdString();
    look->setParentItem(window.quickWindow()->contentItem());
    look->setSize({400, 76});
    look->setZ(100);
    int number = 0;
    for (const Color& ground : {Color::black(), Color{0.2, 0.25, 0.4, 1}, Color{0.5, 0.5, 0.5, 1},
                                Color{0.9, 0.5, 0.2, 1}, Color::white()}) {
        for (const Color& text : {Color::black(), Color::white(), Color{0.67, 0, 0, 1}, Color{0, 0, 0.67, 1}}) {
            const Image picture = filled(ground);
            const std::string key = "ground" + std::to_string(++number);
            shell.pictures().add({key, [picture] { return std::make_shared<const Image>(picture); }});
            look->setProperty("background", QString::fromStdString(key));
            look->setProperty("textColor", qtColor(text));
            look->setProperty("scrim", qtColor(textScrim(text, picture)));
            QTest::qWait(60);
            ASSERT_TRUE(until([&] { return look->findChild<QQuickItem*>(QStringLiteral("picture"))->opacity() == 1; }));
            const QImage drawn = window.quickWindow()->grabWindow();
            for (const int y : {20, 30, 40, 50, 58}) {
                const QColor pixel = drawn.pixelColor(200, y);
                EXPECT_GE(contrastRatio(text, {pixel.redF(), pixel.greenF(), pixel.blueF(), 1}),
                          kLeastTextContrast - 0.1)
                    << text.hex() << " on " << ground.hex() << " at " << y;
            }
        }
    }
}

}  // namespace dayward

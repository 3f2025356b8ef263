#include "Classes/Interface/General/TextScrim.h"

#include <gtest/gtest.h>

#include "platform/ImageImport.h"

namespace dayward {
namespace {

Image filled(const Color& color, int pixels = 100) {
    Data rgba;
    for (int count = 0; count < pixels; ++count) {
        for (const double channel : {color.red, color.green, color.blue, color.alpha})
            rgba.push_back(static_cast<std::uint8_t>(channel * 255 + 0.5));
    }
    return {pixels, 1, std::move(rgba)};
}

Color under(const Color& ground, const Color& scrim) {
    const auto mix = [&](double a, double b) { return a + (b - a) * scrim.alpha; };
    return {mix(ground.red, scrim.red), mix(ground.green, scrim.green), mix(ground.blue, scrim.blue), 1};
}

TEST(TextScrim, MakesAnyTextReadableOnAnyGround) {
    const std::array levels{0.0, 0.35, 0.6, 1.0};
    std::vector<Color> colors;
    for (const double red : levels)
        for (const double green : levels)
            for (const double blue : levels) colors.push_back({red, green, blue, 1});
    for (const Color& text : colors) {
        for (const Color& ground : colors) {
            const Color measured = textScrim(text, filled(ground));
            // A channel of the picture is rounded.
            EXPECT_GE(contrastRatio(text, under(ground, measured)), kLeastTextContrast - 0.1)
                << text.hex() << " on " << ground.hex();
            EXPECT_GE(contrastRatio(text, under(ground, textScrim(text))), kLeastTextContrast - 0.001) << text.hex();
            EXPECT_LE(measured.alpha, textScrim(text).alpha + 0.01) << text.hex() << " on " << ground.hex();
        }
    }
}

TEST(TextScrim, LeavesAReadablePictureAlone) {
    EXPECT_EQ(textScrim(Color::white(), filled(Color::black())).alpha, 0);
    EXPECT_EQ(textScrim(Color::black(), filled({0, 0, 0, 0})).alpha, 0) << "white shows through";
    Data few = filled(Color::black(), 200).rgba();
    std::fill_n(few.begin(), 8, 255);
    EXPECT_EQ(textScrim(Color::white(), Image(200, 1, few)).alpha, 0) << "two bright pixels of two hundred";
    EXPECT_NEAR(contrastRatio(Color::white(), Color::black()), 21, 1e-9);
}

TEST(TextScrim, AddsComfortWhileMostOfThePictureStays) {
    const Color grey{0.5, 0.5, 0.5, 1};
    const Color dark{0.1, 0.12, 0.2, 1};
    const Color onGrey = textScrim(Color::black(), filled(grey));
    EXPECT_GE(contrastRatio(Color::black(), under(grey, onGrey)), 6.9) << "little is needed, and given";
    const Color onDark = textScrim(Color::black(), filled(dark));
    EXPECT_LE(onDark.alpha, 0.55);
    EXPECT_GT(contrastRatio(Color::black(), under(dark, onDark)), kLeastTextContrast);
}

TEST(ScaledToFill, TakesTheMiddleInTheShapeOfTheSize) {
    Data wide;
    for (const int grey : {10, 20, 30, 40})
        for (int channel = 0; channel < 4; ++channel)
            wide.push_back(static_cast<std::uint8_t>(channel < 3 ? grey : 255));
    const Image middle = scaledToFill(Image(4, 1, wide), {2, 1});
    EXPECT_EQ(middle.width(), 2);
    EXPECT_EQ(middle.rgba()[0], 20);
    const Image square = scaledToFill(filled(Color::white(), 90), {30, 10});
    EXPECT_EQ(square.width(), 3) << "never made larger";
    EXPECT_EQ(square.height(), 1);
    const Image smaller = scaledToFill(Image(40, 20, Data(3200, 7)), {10, 10});
    EXPECT_EQ(smaller.width(), 10);
    EXPECT_EQ(smaller.height(), 10);
    EXPECT_TRUE(scaledToFill(Image(), {10, 10}).isEmpty());
    EXPECT_TRUE(scaledToFill(filled(Color::white()), {0, 10}).isEmpty());
}

}  // namespace
}  // namespace dayward

#include "resources/generator/Icons.h"

#include <cmath>
#include <numbers>

#include "resources/generator/Canvas.h"

namespace dayward {
namespace {

constexpr int kSize = 256;

Color hex(const char* text) { return *Color::fromHex(text); }

void drawSmile(Canvas& canvas) {
    const Color dark = hex("#5D3A00");
    canvas.fill(circle({0.5, 0.5}, 0.46), hex("#E8A317"));
    canvas.fill(circle({0.5, 0.5}, 0.43), hex("#FFD54A"));
    for (const double side : {0.3, 0.7}) {
        canvas.fill(path({{side - 0.09, 0.42}, {side, 0.32}, {side + 0.09, 0.42}}, 0.05), dark);
    }
    const Shape mouth = common(circle({0.5, 0.53}, 0.28), box({0.2, 0.54}, {0.8, 0.85}));
    canvas.fill(mouth, dark);
    canvas.fill(common(mouth, circle({0.5, 0.88}, 0.18)), hex("#F06070"));
    canvas.fill(common(mouth, box({0.2, 0.54}, {0.8, 0.6})), Color::white());
}

void drawTree(Canvas& canvas) {
    canvas.fill(box({0.44, 0.82}, {0.56, 0.97}), hex("#7B4A21"));
    for (const auto& [top, bottom, half, color] :
         {std::tuple{0.5, 0.85, 0.38, "#1B6E37"}, {0.3, 0.65, 0.3, "#238A46"}, {0.12, 0.44, 0.22, "#2EA556"}}) {
        canvas.fill(polygon({{0.5, top}, {0.5 - half, bottom}, {0.5 + half, bottom}}), hex(color));
    }
    for (const auto& [place, color] : {std::pair{Point{0.42, 0.36}, "#FF5C5C"},
                                       {{0.58, 0.5}, "#FFC83D"},
                                       {{0.38, 0.6}, "#5CC8FF"},
                                       {{0.62, 0.74}, "#FF5C5C"},
                                       {{0.4, 0.78}, "#FFC83D"}}) {
        canvas.fill(circle(place, 0.04), hex(color));
    }
    canvas.fill(star({0.5, 0.12}, 0.1, 5), hex("#FFD54A"));
}

void drawHeart(Canvas& canvas) {
    canvas.fill(heart({0.5, 0.52}, 0.94), hex("#B3122D"));
    canvas.fill(heart({0.5, 0.52}, 0.86), hex("#E8304F"));
    canvas.glow(circle({0.33, 0.34}, 0.03), {1, 1, 1, 0.6}, 0.1);
}

void drawFlower(Canvas& canvas, Point center, double size, Color petals) {
    for (int petal = 0; petal < 6; ++petal) {
        const double angle = petal * std::numbers::pi / 3;
        canvas.fill(circle({center.x + size * std::cos(angle), center.y + size * std::sin(angle)}, size * 0.62),
                    petals);
    }
    canvas.fill(circle(center, size * 0.6), hex("#FFD54A"));
}

void drawBouquet(Canvas& canvas) {
    for (const Point flower : {Point{0.28, 0.32}, {0.72, 0.32}, {0.5, 0.22}}) {
        canvas.fill(line(flower, {0.5, 0.85}, 0.03), hex("#2E8B4A"));
    }
    canvas.fill(polygon({{0.24, 0.52}, {0.76, 0.52}, {0.56, 0.97}, {0.44, 0.97}}), hex("#F3E3C3"));
    canvas.fill(polygon({{0.5, 0.52}, {0.76, 0.52}, {0.56, 0.97}}), hex("#E4CFA2"));
    canvas.fill(box({0.39, 0.74}, {0.61, 0.8}, 0.02), hex("#D64570"));
    drawFlower(canvas, {0.27, 0.34}, 0.11, hex("#F06292"));
    drawFlower(canvas, {0.73, 0.34}, 0.11, hex("#BA68C8"));
    drawFlower(canvas, {0.5, 0.24}, 0.13, hex("#FF8A65"));
}

void drawBomb(Canvas& canvas) {
    canvas.fill(path({{0.62, 0.28}, {0.7, 0.18}, {0.8, 0.17}, {0.86, 0.22}}, 0.035), hex("#A47C48"));
    canvas.fill(star({0.86, 0.2}, 0.12, 8), hex("#FFB300"));
    canvas.fill(circle({0.86, 0.2}, 0.04), hex("#FFF3C4"));
    canvas.fill(turned(box({0.35, 0.14}, {0.53, 0.3}, 0.02), {0.44, 0.58}, 0.6), hex("#4A4F57"));
    canvas.fill(circle({0.44, 0.6}, 0.36), hex("#23272E"));
    canvas.glow(circle({0.3, 0.44}, 0.02), {1, 1, 1, 0.55}, 0.12);
}

void drawCards(Canvas& canvas) {
    const Shape card = box({0.3, 0.14}, {0.7, 0.86}, 0.05);
    const Shape edge = box({0.285, 0.125}, {0.715, 0.875}, 0.06);
    for (const auto& [angle, suit] : {std::pair{-0.32, "#23272E"}, {0.22, "#E8304F"}}) {
        canvas.fill(turned(edge, {0.5, 1.0}, angle), hex("#8A93A0"));
        canvas.fill(turned(card, {0.5, 1.0}, angle), Color::white());
        const Shape mark = angle < 0 ? both(turned(heart({0.5, 0.5}, 0.26), {0.5, 0.5}, std::numbers::pi),
                                            box({0.485, 0.5}, {0.515, 0.66}))
                                     : heart({0.5, 0.5}, 0.28);
        canvas.fill(turned(mark, {0.5, 1.0}, angle), hex(suit));
    }
}

void drawSchool(Canvas& canvas) {
    canvas.fill(line({0.5, 0.06}, {0.5, 0.3}, 0.02), hex("#6B7280"));
    canvas.fill(polygon({{0.51, 0.06}, {0.68, 0.11}, {0.51, 0.17}}), hex("#E8304F"));
    canvas.fill(box({0.06, 0.5}, {0.94, 0.92}), hex("#E9B872"));
    canvas.fill(polygon({{0.5, 0.22}, {0.24, 0.44}, {0.24, 0.92}, {0.76, 0.92}, {0.76, 0.44}}), hex("#F4CE93"));
    canvas.fill(polygon({{0.5, 0.2}, {0.2, 0.46}, {0.26, 0.5}, {0.5, 0.3}, {0.74, 0.5}, {0.8, 0.46}}), hex("#B4472E"));
    canvas.fill(circle({0.5, 0.46}, 0.07), Color::white());
    canvas.fill(path({{0.5, 0.42}, {0.5, 0.46}, {0.53, 0.48}}, 0.015), hex("#23272E"));
    canvas.fill(box({0.43, 0.68}, {0.57, 0.92}, 0.01), hex("#7B4A21"));
    for (const double left : {0.1, 0.29, 0.61, 0.8}) {
        canvas.fill(box({left, 0.6}, {left + 0.1, 0.76}, 0.01), hex("#7EC4E8"));
    }
}

void drawBell(Canvas& canvas) {
    const Color gold = hex("#F5B82E");
    canvas.fill(circle({0.5, 0.86}, 0.09), hex("#B97F0A"));
    canvas.fill(circle({0.5, 0.13}, 0.06), gold);
    canvas.fill(both(circle({0.5, 0.4}, 0.26), polygon({{0.24, 0.4}, {0.76, 0.4}, {0.8, 0.68}, {0.2, 0.68}})), gold);
    canvas.fill(box({0.12, 0.66}, {0.88, 0.8}, 0.06), hex("#E09E14"));
    canvas.glow(line({0.35, 0.34}, {0.32, 0.56}, 0.03), {1, 1, 1, 0.55}, 0.06);
}

void drawStar(Canvas& canvas) {
    canvas.fill(star({0.5, 0.53}, 0.48, 5), hex("#E8A317"));
    canvas.fill(star({0.5, 0.53}, 0.42, 5), hex("#FFD54A"));
}

void drawGift(Canvas& canvas) {
    canvas.fill(box({0.14, 0.42}, {0.86, 0.94}, 0.03), hex("#3F7FD6"));
    canvas.fill(box({0.08, 0.3}, {0.92, 0.46}, 0.03), hex("#5C9BF0"));
    canvas.fill(box({0.43, 0.3}, {0.57, 0.94}), hex("#FFD54A"));
    for (const double side : {-1.0, 1.0}) {
        const Shape loop = without(circle({0.5 + side * 0.14, 0.2}, 0.12), circle({0.5 + side * 0.14, 0.2}, 0.06));
        canvas.fill(loop, hex("#FFD54A"));
    }
}

void drawRandomNames(Canvas& canvas) {
    canvas.gradient(hex("#7E9CD8"), hex("#C39BD3"), 0.8);
    for (const auto& [angle, color] : {std::pair{-0.25, "#FFE2A8"}, {0.0, "#FFC1CC"}, {0.25, "#FFFFFF"}}) {
        canvas.fill(turned(box({0.28, 0.24}, {0.72, 0.76}, 0.03), {0.5, 1.1}, angle), hex(color));
    }
    canvas.fill(polygon({{0.42, 0.66}, {0.52, 0.46}, {0.64, 0.62}}), hex("#7E9CD8"));
}

void drawRandomColors(Canvas& canvas) {
    constexpr int kCells = 4;
    for (int cell = 0; cell < kCells * kCells; ++cell) {
        const double hue = 2 * std::numbers::pi * cell / (kCells * kCells);
        const auto wave = [hue](double shift) { return 0.6 + 0.35 * std::cos(hue - shift); };
        const Point corner{static_cast<double>(cell % kCells) / kCells, static_cast<double>(cell / kCells) / kCells};
        canvas.fill(box(corner, {corner.x + 1.0 / kCells, corner.y + 1.0 / kCells}),
                    {wave(0), wave(2.1), wave(4.2), 1});
    }
}

}  // namespace

std::map<std::string, Image> drawIcons() {
    std::map<std::string, Image> icons;
    for (const auto& [name, draw] : {std::pair{"smile_lol.png", &drawSmile},
                                     {"Christmas Tree.png", &drawTree},
                                     {"heart4.png", &drawHeart},
                                     {"flower_bouquet.png", &drawBouquet},
                                     {"bomb.png", &drawBomb},
                                     {"cards.png", &drawCards},
                                     {"school.png", &drawSchool},
                                     {"remind.png", &drawBell},
                                     {"star.png", &drawStar},
                                     {"gift.png", &drawGift},
                                     {"BackgroundInfoRandomName.png", &drawRandomNames},
                                     {"BackgroundInfoRandomColor.png", &drawRandomColors}}) {
        Canvas canvas(kSize);
        draw(canvas);
        icons.emplace(name, canvas.image());
    }
    return icons;
}

}  // namespace dayward

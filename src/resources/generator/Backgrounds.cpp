#include "resources/generator/Backgrounds.h"

#include <cmath>
#include <numbers>
#include <random>

#include "resources/generator/Canvas.h"

namespace dayward {
namespace {

constexpr int kSize = 640;

enum class Pattern { plain, confetti, snow, moon, bokeh, dots, stripes, waves, hearts, hills };

struct Background {
    const char* name;
    const char* from;
    const char* to;
    double angle;  ///< of the gradient, in radians clockwise from the right
    Pattern pattern;
};

constexpr double kDown = std::numbers::pi / 2;

constexpr Background kBackgrounds[] = {
    {"bg-01.jpg", "#89C4F4", "#E8F4FC", kDown, Pattern::plain},
    {"bg-02.jpg", "#FF9A76", "#FFD9A0", kDown, Pattern::hills},
    {"bg-03.jpg", "#2B5876", "#4E4376", 0.8, Pattern::bokeh},
    {"bg-04.jpg", "#A8E6CF", "#DCEDC1", 0.8, Pattern::dots},
    {"bg-05.jpg", "#F6D365", "#FDA085", 0.8, Pattern::stripes},
    {"bg-06.jpg", "#5DA9E9", "#2E6FB7", kDown, Pattern::waves},
    {"bg-07.jpg", "#FBC2EB", "#A6C1EE", 0.8, Pattern::plain},
    {"bg-08.jpg", "#F8B5C1", "#FFE3E8", kDown, Pattern::hearts},
    {"bg-09.jpg", "#134E5E", "#71B280", kDown, Pattern::hills},
    {"bg-10.jpg", "#D9CDB8", "#F4EEE2", 0.8, Pattern::stripes},
    {"bg-11.jpg", "#1D2B64", "#6A5ACD", kDown, Pattern::snow},
    {"bg-12.jpg", "#F0F2F5", "#CBD2DB", kDown, Pattern::dots},
    {"bg-37.jpg", "#FFE29A", "#FF9AA2", 0.8, Pattern::confetti},
    {"bg-58.jpg", "#0F2A4A", "#3E6C9C", kDown, Pattern::snow},
    {"bg-62.jpg", "#1B1230", "#4B2A5E", kDown, Pattern::moon},
    {"bg-69.jpg", "#F9C5D5", "#F7E3EC", 0.8, Pattern::bokeh},
    {"bg-72.jpg", "#2E8B57", "#9BD8A5", 0.8, Pattern::dots},
};

class Painter {
public:
    explicit Painter(std::uint32_t seed) : canvas_(kSize), random_(seed) {}

    Image paint(const Background& background) {
        canvas_.gradient(*Color::fromHex(background.from), *Color::fromHex(background.to), background.angle);
        switch (background.pattern) {
            case Pattern::plain: break;
            case Pattern::confetti: confetti(); break;
            case Pattern::snow: snow(); break;
            case Pattern::moon: moon(); break;
            case Pattern::bokeh: bokeh(); break;
            case Pattern::dots: dots(); break;
            case Pattern::stripes: stripes(); break;
            case Pattern::waves: waves({1, 1, 1, 0.13}, 0.35, 5); break;
            case Pattern::hearts: hearts(); break;
            case Pattern::hills: waves({0.1, 0.15, 0.25, 0.18}, 0.6, 4); break;
        }
        return canvas_.image();
    }

private:
    /// From 0 to 1. The library's distributions differ between systems, the engine does not.
    double share() { return static_cast<double>(random_()) / 4294967295.0; }
    Point place() {
        const double x = share();
        return {x, share()};
    }

    void confetti() {
        static constexpr Color kColors[] = {{0.96, 0.36, 0.4, 0.8},
                                            {0.3, 0.65, 0.95, 0.8},
                                            {0.45, 0.8, 0.45, 0.8},
                                            {0.7, 0.45, 0.9, 0.8},
                                            {1, 1, 1, 0.8}};
        for (int piece = 0; piece < 90; ++piece) {
            const Point at = place();
            const Shape paper = box({at.x - 0.012, at.y - 0.006}, {at.x + 0.012, at.y + 0.006}, 0.002);
            canvas_.fill(turned(paper, at, share() * std::numbers::pi), kColors[piece % 5]);
        }
    }
    void snow() {
        for (int flake = 0; flake < 120; ++flake) {
            const Point at = place();
            const double radius = 0.001 + 0.006 * share();
            canvas_.glow(circle(at, radius), {1, 1, 1, 0.35 + 0.4 * share()}, radius);
        }
    }
    void moon() {
        for (int index = 0; index < 60; ++index) canvas_.glow(circle(place(), 0.0015), {1, 1, 1, 0.6}, 0.002);
        canvas_.glow(circle({0.72, 0.26}, 0.12), {1, 0.95, 0.8, 0.35}, 0.2);
        canvas_.fill(circle({0.72, 0.26}, 0.12), {1, 0.95, 0.8, 0.95});
        waves({0.05, 0.03, 0.1, 0.5}, 0.75, 3);
    }
    void bokeh() {
        for (int light = 0; light < 40; ++light) {
            const Point at = place();
            canvas_.glow(circle(at, 0.02 + 0.06 * share()), {1, 1, 1, 0.06 + 0.12 * share()}, 0.01);
        }
    }
    void dots() {
        constexpr int kRows = 12;
        for (int row = 0; row <= kRows; ++row) {
            for (int column = 0; column <= kRows; ++column) {
                const double shift = row % 2 == 0 ? 0 : 0.5;
                canvas_.fill(circle({(column + shift) / kRows, static_cast<double>(row) / kRows}, 0.014),
                             {1, 1, 1, 0.22});
            }
        }
    }
    void stripes() {
        for (int stripe = -8; stripe < 9; ++stripe) {
            const double x = stripe / 8.0;
            canvas_.fill(polygon({{x, 0}, {x + 0.06, 0}, {x + 1.06, 1}, {x + 1, 1}}), {1, 1, 1, 0.14});
        }
    }
    void waves(Color color, double top, int count) {
        for (int wave = 0; wave < count; ++wave) {
            const double level = top + (1 - top) * wave / count;
            const double phase = share() * 2 * std::numbers::pi;
            std::vector<Point> corners = {{1, 1}, {0, 1}};
            for (int step = 0; step <= 40; ++step) {
                const double x = step / 40.0;
                corners.push_back({x, level + 0.04 * std::sin(x * 7 + phase)});
            }
            canvas_.fill(polygon(std::move(corners)), color);
        }
    }
    void hearts() {
        for (int index = 0; index < 36; ++index) {
            const Point at = place();
            canvas_.fill(heart(at, 0.04 + 0.06 * share()), {1, 1, 1, 0.3});
        }
    }

    Canvas canvas_;
    std::mt19937 random_;
};

}  // namespace

std::map<std::string, Image> drawBackgrounds() {
    std::map<std::string, Image> images;
    std::uint32_t seed = 0;
    for (const auto& background : kBackgrounds) images.emplace(background.name, Painter(++seed).paint(background));
    return images;
}

}  // namespace dayward

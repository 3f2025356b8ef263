// A square picture under the brush. Coordinates run from 0 to 1, from the left and from the top;
// colours are in the screen's own (sRGB) values from 0 to 1 and may leave that range while painting.
#pragma once

#include <algorithm>
#include <cmath>
#include <string_view>
#include <vector>

#include "platform/Image.h"

namespace dayward::generator {

struct Point {
    float x = 0, y = 0;

    friend Point operator+(Point a, Point b) { return {a.x + b.x, a.y + b.y}; }
    friend Point operator-(Point a, Point b) { return {a.x - b.x, a.y - b.y}; }
    friend Point operator*(Point a, float factor) { return {a.x * factor, a.y * factor}; }
};

inline float length(Point a) { return std::sqrt(a.x * a.x + a.y * a.y); }
inline Point rotated(Point a, float angle) {
    const float c = std::cos(angle), s = std::sin(angle);
    return {a.x * c - a.y * s, a.x * s + a.y * c};
}

struct Paint {
    float red = 0, green = 0, blue = 0;

    /// Of "#RRGGBB"; throws std::runtime_error for anything else.
    static Paint fromHex(std::string_view text);

    friend Paint operator+(Paint a, Paint b) { return {a.red + b.red, a.green + b.green, a.blue + b.blue}; }
    friend Paint operator*(Paint a, float factor) { return {a.red * factor, a.green * factor, a.blue * factor}; }
};

inline float mix(float a, float b, float share) { return a + (b - a) * share; }
inline Paint mix(Paint a, Paint b, float share) {
    return {mix(a.red, b.red, share), mix(a.green, b.green, share), mix(a.blue, b.blue, share)};
}
/// 0 up to `from`, 1 from `to` on, smooth between; `from` may be the larger.
inline float smooth(float from, float to, float value) {
    const float share = std::clamp((value - from) / (to - from), 0.0F, 1.0F);
    return share * share * (3 - 2 * share);
}
/// The colour at a share from 0 to 1 of an even scale of colours.
Paint colorAt(const std::vector<Paint>& scale, float share);

struct Box {
    Point least, most;
    static Box around(Point center, float reach) {
        return {center - Point{reach, reach}, center + Point{reach, reach}};
    }
};

class Raster {
public:
    explicit Raster(int size) : size_(size), pixels_(static_cast<std::size_t>(size) * size) {}

    [[nodiscard]] int size() const { return size_; }
    [[nodiscard]] float step() const { return 1.0F / static_cast<float>(size_); }
    [[nodiscard]] Paint& pixel(int column, int row) { return pixels_[static_cast<std::size_t>(row) * size_ + column]; }
    /// The nearest pixel's colour; places outside count as the edge.
    [[nodiscard]] Paint at(Point place) const {
        const auto index = [this](float share) {
            return std::clamp(static_cast<int>(share * static_cast<float>(size_)), 0, size_ - 1);
        };
        return pixels_[static_cast<std::size_t>(index(place.y)) * size_ + index(place.x)];
    }

    /// Calls change(paint, point) for each pixel of the box.
    template <class Change>
    void each(Box box, Change change) {
        const auto bound = [this](float share, float shift) {
            return static_cast<int>(
                std::clamp(share * static_cast<float>(size_) + shift, 0.0F, static_cast<float>(size_)));
        };
        const int right = bound(box.most.x, 1), below = bound(box.most.y, 1);
        for (int row = bound(box.least.y, 0); row < below; ++row) {
            for (int column = bound(box.least.x, 0); column < right; ++column)
                change(pixel(column, row), center(column, row));
        }
    }
    template <class Change>
    void each(Change change) {
        each({{0, 0}, {1, 1}}, change);
    }

    [[nodiscard]] Point center(int column, int row) const {
        return {(static_cast<float>(column) + 0.5F) * step(), (static_cast<float>(row) + 0.5F) * step()};
    }

    [[nodiscard]] Image image() const;

private:
    int size_;
    std::vector<Paint> pixels_;
};

}  // namespace dayward::generator

#include "resources/generator/Canvas.h"

#include <algorithm>
#include <cmath>

namespace dayward {
namespace {

Color over(Color below, Color above, double coverage) {
    const double share = above.alpha * coverage;
    const double alpha = share + below.alpha * (1 - share);
    if (alpha <= 0) return below;
    const auto mixed = [&](double a, double b) { return (a * share + b * below.alpha * (1 - share)) / alpha; };
    return {mixed(above.red, below.red), mixed(above.green, below.green), mixed(above.blue, below.blue), alpha};
}

std::uint8_t byteOf(double component) {
    return static_cast<std::uint8_t>(std::lround(std::clamp(component, 0.0, 1.0) * 255));
}

}  // namespace

template <class Coverage>
void Canvas::paint(const Shape& shape, double margin, Color color, Coverage coverage) {
    const auto pixel = [&](double place) { return std::clamp(static_cast<int>(std::floor(place * size_)), 0, size_); };
    for (int row = pixel(shape.least.y - margin); row < pixel(shape.most.y + margin) + 1 && row < size_; ++row) {
        for (int column = pixel(shape.least.x - margin); column < pixel(shape.most.x + margin) + 1 && column < size_;
             ++column) {
            const double distance = shape.distance({(column + 0.5) / size_, (row + 0.5) / size_});
            const double covered = std::clamp(coverage(distance), 0.0, 1.0);
            auto& below = pixels_[static_cast<std::size_t>(row) * size_ + column];
            if (covered > 0) below = over(below, color, covered);
        }
    }
}

void Canvas::fill(const Shape& shape, Color color) {
    paint(shape, 1.0 / size_, color, [this](double distance) { return 0.5 - distance * size_; });
}

void Canvas::glow(const Shape& shape, Color color, double fade) {
    paint(shape, fade, color, [fade](double distance) { return 1 - distance / fade; });
}

void Canvas::gradient(Color from, Color to, double angle) {
    const Point along{std::cos(angle), std::sin(angle)};
    const double span = std::abs(along.x) + std::abs(along.y);
    for (std::size_t index = 0; index < pixels_.size(); ++index) {
        const double x = (static_cast<double>(index % size_) + 0.5) / size_ - 0.5;
        const double y = (static_cast<double>(index / size_) + 0.5) / size_ - 0.5;
        const double share = (x * along.x + y * along.y) / span + 0.5;
        const auto mixed = [share](double a, double b) { return a + (b - a) * share; };
        pixels_[index] = {mixed(from.red, to.red), mixed(from.green, to.green), mixed(from.blue, to.blue), 1};
    }
}

Image Canvas::image() const {
    Data rgba;
    rgba.reserve(pixels_.size() * 4);
    for (const Color& color : pixels_) {
        for (const double component : {color.red, color.green, color.blue, color.alpha})
            rgba.push_back(byteOf(component));
    }
    return Image(size_, size_, std::move(rgba));
}

}  // namespace dayward

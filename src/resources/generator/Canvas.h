// A square picture to draw shapes on, with smooth edges.
#pragma once

#include <vector>

#include "platform/Color.h"
#include "platform/Image.h"
#include "resources/generator/Shape.h"

namespace dayward {

class Canvas {
public:
    /// Transparent, `size` pixels wide and high.
    explicit Canvas(int size) : size_(size), pixels_(static_cast<std::size_t>(size) * size, Color{0, 0, 0, 0}) {}

    void fill(const Shape& shape, Color color);
    /// The edge fades over the length outside of the shape.
    void glow(const Shape& shape, Color color, double fade);
    /// From one colour to the other along the angle, in radians clockwise from the right.
    void gradient(Color from, Color to, double angle);

    [[nodiscard]] Image image() const;

private:
    template <class Coverage>
    void paint(const Shape& shape, double margin, Color color, Coverage coverage);

    int size_;
    std::vector<Color> pixels_;
};

}  // namespace dayward

// Plane shapes as signed distances, for drawing with smooth edges. Coordinates run from 0 to 1, from
// the left and from the top. Plain values.
#pragma once

#include <functional>
#include <vector>

namespace dayward {

struct Point {
    double x = 0, y = 0;
};

/// A shape and a box that holds it.
struct Shape {
    /// Negative inside, 0 on the edge; elsewhere about the distance to it.
    std::function<double(Point)> distance;
    Point least, most;
};

Shape circle(Point center, double radius);
/// The corners are rounded by `rounding`, which counts into the size.
Shape box(Point least, Point most, double rounding = 0);
/// A line with round ends.
Shape line(Point from, Point to, double width);
/// Lines from point to point.
Shape path(const std::vector<Point>& points, double width);
/// Any simple polygon.
Shape polygon(std::vector<Point> corners);
Shape star(Point center, double radius, int tips);
Shape heart(Point center, double size);

Shape both(Shape a, Shape b);
Shape common(Shape a, Shape b);
Shape without(Shape a, Shape b);
/// Turned clockwise around the point, by an angle in radians.
Shape turned(Shape shape, Point around, double angle);

}  // namespace dayward

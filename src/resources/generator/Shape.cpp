#include "resources/generator/Shape.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace dayward {
namespace {

Point operator-(Point a, Point b) { return {a.x - b.x, a.y - b.y}; }
double dot(Point a, Point b) { return a.x * b.x + a.y * b.y; }
double length(Point a) { return std::hypot(a.x, a.y); }

double distanceToSegment(Point point, Point from, Point to) {
    const Point along = to - from;
    const double share = std::clamp(dot(point - from, along) / std::max(dot(along, along), 1e-12), 0.0, 1.0);
    return length({point.x - from.x - along.x * share, point.y - from.y - along.y * share});
}

Point leastOf(Point a, Point b) { return {std::min(a.x, b.x), std::min(a.y, b.y)}; }
Point mostOf(Point a, Point b) { return {std::max(a.x, b.x), std::max(a.y, b.y)}; }

Point rotated(Point point, Point around, double angle) {
    const Point from = point - around;
    return {around.x + from.x * std::cos(angle) - from.y * std::sin(angle),
            around.y + from.x * std::sin(angle) + from.y * std::cos(angle)};
}

}  // namespace

Shape circle(Point center, double radius) {
    return {[=](Point point) { return length(point - center) - radius; },
            {center.x - radius, center.y - radius},
            {center.x + radius, center.y + radius}};
}

Shape box(Point least, Point most, double rounding) {
    const Point center{(least.x + most.x) / 2, (least.y + most.y) / 2};
    const Point half{(most.x - least.x) / 2 - rounding, (most.y - least.y) / 2 - rounding};
    return {[=](Point point) {
                const Point beyond{std::abs(point.x - center.x) - half.x, std::abs(point.y - center.y) - half.y};
                return length({std::max(beyond.x, 0.0), std::max(beyond.y, 0.0)}) +
                       std::min(std::max(beyond.x, beyond.y), 0.0) - rounding;
            },
            least, most};
}

Shape line(Point from, Point to, double width) {
    const Point least = leastOf(from, to);
    const Point most = mostOf(from, to);
    return {[=](Point point) { return distanceToSegment(point, from, to) - width / 2; },
            {least.x - width, least.y - width},
            {most.x + width, most.y + width}};
}

Shape path(const std::vector<Point>& points, double width) {
    Shape whole = line(points[0], points[1], width);
    for (std::size_t index = 2; index < points.size(); ++index) {
        whole = both(std::move(whole), line(points[index - 1], points[index], width));
    }
    return whole;
}

Shape polygon(std::vector<Point> corners) {
    Point least = corners[0];
    Point most = corners[0];
    for (const Point corner : corners) {
        least = leastOf(least, corner);
        most = mostOf(most, corner);
    }
    auto distance = [corners = std::move(corners)](Point point) {
        double nearest = 1e9;
        bool inside = false;
        for (std::size_t index = 0, last = corners.size() - 1; index < corners.size(); last = index++) {
            const Point a = corners[index];
            const Point b = corners[last];
            nearest = std::min(nearest, distanceToSegment(point, a, b));
            const bool crosses = (a.y > point.y) != (b.y > point.y);
            if (crosses && point.x < (b.x - a.x) * (point.y - a.y) / (b.y - a.y) + a.x) inside = !inside;
        }
        return inside ? -nearest : nearest;
    };
    return {std::move(distance), least, most};
}

Shape star(Point center, double radius, int tips) {
    std::vector<Point> corners;
    for (int index = 0; index < 2 * tips; ++index) {
        const double angle = std::numbers::pi * index / tips - std::numbers::pi / 2;
        const double reach = index % 2 == 0 ? radius : radius * 0.42;
        corners.push_back({center.x + reach * std::cos(angle), center.y + reach * std::sin(angle)});
    }
    return polygon(std::move(corners));
}

Shape heart(Point center, double size) {
    std::vector<Point> corners;
    for (int index = 0; index < 120; ++index) {
        const double turn = 2 * std::numbers::pi * index / 120;
        const double x = 16 * std::pow(std::sin(turn), 3);
        const double y = 13 * std::cos(turn) - 5 * std::cos(2 * turn) - 2 * std::cos(3 * turn) - std::cos(4 * turn);
        corners.push_back({center.x + x * size / 34, center.y - (y + 2.5) * size / 34});
    }
    return polygon(std::move(corners));
}

Shape both(Shape a, Shape b) {
    const Point least = leastOf(a.least, b.least);
    const Point most = mostOf(a.most, b.most);
    return {
        [a = std::move(a.distance), b = std::move(b.distance)](Point point) { return std::min(a(point), b(point)); },
        least, most};
}

Shape common(Shape a, Shape b) {
    const Point least = a.least;
    const Point most = a.most;
    return {
        [a = std::move(a.distance), b = std::move(b.distance)](Point point) { return std::max(a(point), b(point)); },
        least, most};
}

Shape without(Shape a, Shape b) {
    auto outside = [distance = std::move(b.distance)](Point point) { return -distance(point); };
    return common(std::move(a), {std::move(outside), b.least, b.most});
}

Shape turned(Shape shape, Point around, double angle) {
    Point least{1e9, 1e9};
    Point most{-1e9, -1e9};
    for (const Point corner :
         {shape.least, shape.most, Point{shape.least.x, shape.most.y}, Point{shape.most.x, shape.least.y}}) {
        least = leastOf(least, rotated(corner, around, angle));
        most = mostOf(most, rotated(corner, around, angle));
    }
    return {[=, distance = std::move(shape.distance)](Point point) { return distance(rotated(point, around, -angle)); },
            least, most};
}

}  // namespace dayward

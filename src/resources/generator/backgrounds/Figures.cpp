#include "resources/generator/backgrounds/Figures.h"

#include <map>
#include <numbers>
#include <stdexcept>

namespace dayward::generator {
namespace {

constexpr float kTurn = 2 * std::numbers::pi_v<float>;

float toBox(Point at, float halfWidth, float halfHeight, float rounding) {
    const float x = std::abs(at.x) - halfWidth + rounding, y = std::abs(at.y) - halfHeight + rounding;
    return length({std::max(x, 0.0F), std::max(y, 0.0F)}) + std::min(std::max(x, y), 0.0F) - rounding;
}

/// The plane folded to one of `count` equal sectors, whose middle points to the right.
Point folded(Point at, int count) {
    const float sector = kTurn / static_cast<float>(count);
    const float angle = std::atan2(at.y, at.x), own = angle - sector * std::round(angle / sector);
    return Point{std::cos(own), std::sin(own)} * length(at);
}

float disc(Point at) { return length(at) - 1; }
float ring(Point at) { return std::abs(length(at) - 0.84F) - 0.16F; }
float strip(Point at) { return toBox(at, 1, 0.36F, 0.06F); }
float plus(Point at) { return std::min(toBox(at, 1, 0.3F, 0.1F), toBox(at, 0.3F, 1, 0.1F)); }

float heart(Point at) {
    const float x = std::abs(at.x) * 1.05F, y = 0.55F - at.y * 1.05F;
    if (y + x > 1) return std::sqrt((x - 0.25F) * (x - 0.25F) + (y - 0.75F) * (y - 0.75F)) - 0.3535534F;
    const float low = std::max(x + y, 0.0F) / 2;
    const float toTop = x * x + (y - 1) * (y - 1), toSide = (x - low) * (x - low) + (y - low) * (y - low);
    return std::sqrt(std::min(toTop, toSide)) * (x > y ? 1.0F : -1.0F);
}

/// Four hearts that meet in their points.
float clover(Point at) {
    const Point place = folded(rotated(at, kTurn / 8), 4);
    return heart(Point{place.y, 0.02F - place.x} * 1.75F + Point{0, 0.5F}) / 1.75F;
}

float star(Point at) {
    const Point place = folded({-at.y, at.x}, 5);
    const Point tip{1, 0}, notch{0.42F * std::cos(kTurn / 10), 0.42F * std::sin(kTurn / 10)};
    const Point along = notch - tip, way = Point{place.x, std::abs(place.y)} - tip;
    return (along.x * way.y - along.y * way.x) / length(along) * -1;
}

float triangle(Point at) {
    const Point place = folded({at.y, at.x}, 3);
    return place.x - 0.5F;
}

/// Two arcs that meet in points.
float leaf(Point at) { return length({at.x, std::abs(at.y) + 0.9F}) - 1.345F; }

float petal(Point at) {
    const float share = (at.x + 1) / 2;
    const float width = 0.62F * std::sqrt(std::max(0.0F, share)) * std::sqrt(std::max(0.0F, 1 - share * share));
    return std::max(std::abs(at.y) - width, std::abs(at.x) - 1);
}

float flower(Point at) {
    const Point place = folded(at, 5);
    return std::max(length(place - Point{0.58F, 0}) - 0.42F, -(length(at) - 0.16F));
}

float flake(Point at) {
    const Point place = folded(at, 6);
    const float up = std::abs(place.y);
    float nearest = toBox({place.x - 0.5F, up}, 0.5F, 0.045F, 0.04F);
    for (const float root : {0.42F, 0.68F}) {
        const Point branch = rotated(Point{place.x - root, up}, -0.95F);
        nearest = std::min(nearest, toBox({branch.x - 0.14F, branch.y}, 0.16F, 0.04F, 0.03F));
    }
    return nearest;
}

float drop(Point at) {
    const float width = 0.62F, y = at.y - 0.3F;
    if (y > 0) return length({at.x, y}) - width;
    const float share = std::clamp(-y / 1.3F, 0.0F, 1.0F);
    return std::max(std::abs(at.x) - width * (1 - share) * std::sqrt(1 - share * share * 0.2F), -1 - at.y) * 0.8F;
}

float note(Point at) {
    const Point head = rotated(at - Point{-0.3F, 0.68F}, 0.35F);
    const float oval = (length({head.x, head.y * 1.4F}) - 0.34F) * 0.8F;
    const float stem = toBox(at - Point{0, -0.1F}, 0.055F, 0.8F, 0.03F);
    const Point flag = rotated(at - Point{0.25F, -0.62F}, -0.75F);
    return std::min({oval, stem, toBox(flag, 0.38F, 0.1F, 0.08F)});
}

}  // namespace

Figure figureNamed(const std::string& name) {
    static const std::map<std::string, Figure> figures = {
        {"disc", disc},   {"ring", ring},         {"strip", strip}, {"plus", plus},     {"heart", heart},
        {"star", star},   {"triangle", triangle}, {"leaf", leaf},   {"petal", petal},   {"flower", flower},
        {"flake", flake}, {"drop", drop},         {"note", note},   {"clover", clover},
    };
    const auto found = figures.find(name);
    if (found == figures.end()) throw std::runtime_error("no figure is named " + name);
    return found->second;
}

}  // namespace dayward::generator

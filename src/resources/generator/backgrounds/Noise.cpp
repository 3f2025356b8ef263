#include "resources/generator/backgrounds/Noise.h"

namespace dayward::generator {
namespace {

std::uint32_t scrambled(int x, int y, std::uint32_t seed) {
    std::uint32_t value =
        static_cast<std::uint32_t>(x) * 0x8DA6B343U ^ static_cast<std::uint32_t>(y) * 0xD8163841U ^ seed * 0xCB1AB31FU;
    value = (value ^ value >> 15) * 0x2C1B3C6DU;
    value = (value ^ value >> 12) * 0x297A2D39U;
    return value ^ value >> 15;
}

/// The slope at a corner, along one of eight directions, times the way from there.
float slope(int x, int y, std::uint32_t seed, float dx, float dy) {
    constexpr float kDiagonal = 0.70710678F;
    switch (scrambled(x, y, seed) & 7U) {
        case 0: return dx;
        case 1: return -dx;
        case 2: return dy;
        case 3: return -dy;
        case 4: return (dx + dy) * kDiagonal;
        case 5: return (dx - dy) * kDiagonal;
        case 6: return (dy - dx) * kDiagonal;
        default: return (-dx - dy) * kDiagonal;
    }
}

float eased(float share) { return share * share * share * (share * (share * 6 - 15) + 10); }

}  // namespace

float hashed(int x, int y, std::uint32_t seed) { return static_cast<float>(scrambled(x, y, seed)) / 4294967295.0F; }

float noise(Point at, std::uint32_t seed) {
    const float left = std::floor(at.x), top = std::floor(at.y);
    const int x = static_cast<int>(left), y = static_cast<int>(top);
    const float dx = at.x - left, dy = at.y - top;
    const float u = eased(dx), v = eased(dy);
    return 1.5F * mix(mix(slope(x, y, seed, dx, dy), slope(x + 1, y, seed, dx - 1, dy), u),
                      mix(slope(x, y + 1, seed, dx, dy - 1), slope(x + 1, y + 1, seed, dx - 1, dy - 1), u), v);
}

float layeredNoise(Point at, int octaves, std::uint32_t seed) {
    float sum = 0, strength = 0.5F;
    for (int octave = 0; octave < octaves; ++octave, strength *= 0.5F) {
        sum += strength * noise(at, seed + static_cast<std::uint32_t>(octave));
        at = rotated(at, 0.5F) * 2;
    }
    return sum;
}

float ridgedNoise(Point at, int octaves, std::uint32_t seed) {
    float sum = 0, strength = 0.5F;
    for (int octave = 0; octave < octaves; ++octave, strength *= 0.5F) {
        sum += strength * (1 - std::abs(noise(at, seed + static_cast<std::uint32_t>(octave))));
        at = rotated(at, 0.5F) * 2;
    }
    return sum;
}

Cell cellAt(Point at, float jitter, std::uint32_t seed) {
    const int x = static_cast<int>(std::floor(at.x)), y = static_cast<int>(std::floor(at.y));
    Cell cell{9, 9, 0};
    for (int row = y - 1; row <= y + 1; ++row) {
        for (int column = x - 1; column <= x + 1; ++column) {
            const Point point{static_cast<float>(column) + 0.5F + jitter * (hashed(column, row, seed) - 0.5F),
                              static_cast<float>(row) + 0.5F + jitter * (hashed(column, row, seed + 1) - 0.5F)};
            const float distance = length(point - at);
            if (distance < cell.nearest) {
                cell = {distance, cell.nearest, hashed(column, row, seed + 2)};
            } else if (distance < cell.second) {
                cell.second = distance;
            }
        }
    }
    return cell;
}

}  // namespace dayward::generator

#include "resources/generator/icons/Enlarge.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <numbers>
#include <stdexcept>

namespace dayward::generator {
namespace {

constexpr int kChannels = 4, kAlpha = 3;

std::size_t place(const ColorBitmap& picture, int column, int row) {
    return (static_cast<std::size_t>(row) * picture.width + column) * kChannels;
}

ColorBitmap blank(int width, int height) {
    return {width, height, std::vector<float>(static_cast<std::size_t>(width) * height * kChannels)};
}

ColorBitmap trimmed(const ColorBitmap& picture) {
    int left = picture.width, right = 0, top = picture.height, bottom = 0;
    for (int row = 0; row < picture.height; ++row) {
        for (int column = 0; column < picture.width; ++column) {
            if (picture.values[place(picture, column, row) + kAlpha] < 0.02F) continue;
            left = std::min(left, column), right = std::max(right, column + 1);
            top = std::min(top, row), bottom = std::max(bottom, row + 1);
        }
    }
    if (left >= right) throw std::runtime_error("the picture is empty");
    ColorBitmap within = blank(right - left, bottom - top);
    for (int row = 0; row < within.height; ++row) {
        const auto from = picture.values.begin() + static_cast<std::ptrdiff_t>(place(picture, left, row + top));
        std::copy_n(from, static_cast<std::size_t>(within.width) * kChannels,
                    within.values.begin() + static_cast<std::ptrdiff_t>(place(within, 0, row)));
    }
    return within;
}

double lanczos(double x) {
    constexpr double kLobes = 3;
    if (x == 0) return 1;
    if (std::abs(x) >= kLobes) return 0;
    const double turn = std::numbers::pi * x;
    return kLobes * std::sin(turn) * std::sin(turn / kLobes) / (turn * turn);
}

/// The same picture with rows of another width, turned over its diagonal: two passes scale both ways.
ColorBitmap widenedAndTurned(const ColorBitmap& picture, int width) {
    ColorBitmap turned = blank(picture.height, width);
    const double scale = static_cast<double>(picture.width) / width;
    for (int column = 0; column < width; ++column) {
        const double center = (column + 0.5) * scale - 0.5;
        const int first = static_cast<int>(std::floor(center)) - 2;
        std::array<double, 6> weights{};
        double sum = 0;
        for (int tap = 0; tap < 6; ++tap) sum += weights[static_cast<std::size_t>(tap)] = lanczos(first + tap - center);
        for (int row = 0; row < picture.height; ++row) {
            for (int channel = 0; channel < kChannels; ++channel) {
                double value = 0;
                for (int tap = 0; tap < 6; ++tap) {
                    const int at = std::clamp(first + tap, 0, picture.width - 1);
                    const bool isOutside = at != first + tap;
                    if (!isOutside) {
                        value += weights[static_cast<std::size_t>(tap)] *
                                 picture.values[place(picture, at, row) + static_cast<std::size_t>(channel)];
                    }
                }
                turned.values[place(turned, row, column) + static_cast<std::size_t>(channel)] =
                    static_cast<float>(value / sum);
            }
        }
    }
    return turned;
}

/// Adds half of what a small blur takes away.
void sharpen(ColorBitmap& picture) {
    constexpr float kAmount = 0.5F;
    const ColorBitmap before = picture;
    const auto at = [&](int column, int row, std::size_t channel) {
        return before
            .values[place(before, std::clamp(column, 0, before.width - 1), std::clamp(row, 0, before.height - 1)) +
                    channel];
    };
    for (int row = 0; row < picture.height; ++row) {
        for (int column = 0; column < picture.width; ++column) {
            for (std::size_t channel = 0; channel < kChannels; ++channel) {
                float blurred = 0;
                for (int y = -1; y <= 1; ++y) {
                    for (int x = -1; x <= 1; ++x) {
                        blurred += static_cast<float>((2 - std::abs(x)) * (2 - std::abs(y))) / 16 *
                                   at(column + x, row + y, channel);
                    }
                }
                float& value = picture.values[place(picture, column, row) + channel];
                value += kAmount * (value - blurred);
            }
        }
    }
}

}  // namespace

Image squareIcon(const ColorBitmap& picture, int size, int margin) {
    const ColorBitmap within = trimmed(picture);
    const double scale = static_cast<double>(size - 2 * margin) / std::max(within.width, within.height);
    const auto scaled = [scale](int length) { return std::max(1, static_cast<int>(std::lround(length * scale))); };
    ColorBitmap icon = widenedAndTurned(widenedAndTurned(within, scaled(within.width)), scaled(within.height));
    sharpen(icon);

    Data rgba(static_cast<std::size_t>(size) * size * kChannels);
    const int left = (size - icon.width) / 2, top = (size - icon.height) / 2;
    for (int row = 0; row < icon.height; ++row) {
        for (int column = 0; column < icon.width; ++column) {
            const float* const values = &icon.values[place(icon, column, row)];
            const float alpha = std::clamp(values[kAlpha], 0.0F, 1.0F);
            if (alpha < 1.0F / 255) continue;
            auto* const pixel = &rgba[(static_cast<std::size_t>(row + top) * size + column + left) * kChannels];
            for (int channel = 0; channel < kAlpha; ++channel) {
                pixel[channel] =
                    static_cast<std::uint8_t>(std::lround(std::clamp(values[channel] / alpha, 0.0F, 1.0F) * 255));
            }
            pixel[kAlpha] = static_cast<std::uint8_t>(std::lround(alpha * 255));
        }
    }
    return Image(size, size, std::move(rgba));
}

}  // namespace dayward::generator

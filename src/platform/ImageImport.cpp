#include "platform/ImageImport.h"

#include <algorithm>
#include <cmath>
#include <cstring>
#include <vector>

namespace dayward {

namespace {

constexpr std::size_t kChannels = 4;
constexpr std::size_t kAlpha = 3;

/// The source pixels that one pixel of a smaller row or column stands for, and how much of each.
struct Coverage {
    std::size_t first = 0;
    std::vector<float> weights;
};

std::vector<Coverage> coverages(int from, int to) {
    std::vector<Coverage> all(static_cast<std::size_t>(to));
    const double step = static_cast<double>(from) / to;
    for (std::size_t index = 0; index < all.size(); ++index) {
        const double begin = static_cast<double>(index) * step;
        const double end = std::min(begin + step, static_cast<double>(from));
        all[index].first = static_cast<std::size_t>(begin);
        for (double pixel = std::floor(begin); pixel < end; ++pixel) {
            const double covered = std::min(end, pixel + 1) - std::max(begin, pixel);
            all[index].weights.push_back(static_cast<float>(covered / step));
        }
    }
    return all;
}

/// Adds a source row, made narrower, to the sums of a row, with colours multiplied by their alpha.
void addRow(const std::uint8_t* row, const std::vector<Coverage>& columns, float weight, std::vector<float>& sums) {
    for (std::size_t column = 0; column < columns.size(); ++column) {
        const std::uint8_t* pixel = row + columns[column].first * kChannels;
        float* sum = sums.data() + column * kChannels;
        for (const float covered : columns[column].weights) {
            const float alpha = weight * covered * static_cast<float>(pixel[kAlpha]);
            for (std::size_t channel = 0; channel < kAlpha; ++channel) sum[channel] += alpha * pixel[channel];
            sum[kAlpha] += alpha;
            pixel += kChannels;
        }
    }
}

void writeRow(const std::vector<float>& sums, std::uint8_t* row) {
    const auto byte = [](float value) { return static_cast<std::uint8_t>(std::clamp(value + 0.5F, 0.0F, 255.0F)); };
    for (std::size_t place = 0; place < sums.size(); place += kChannels) {
        const float alpha = sums[place + kAlpha];
        for (std::size_t channel = 0; channel < kAlpha; ++channel) {
            row[place + channel] = alpha > 0 ? byte(sums[place + channel] / alpha) : 0;
        }
        row[place + kAlpha] = byte(alpha);
    }
}

struct Pixel {
    int x, y;
};

/// Where the pixel of the upright picture is stored in one of that width and height.
Pixel storedPixel(ImageOrientation orientation, Pixel at, int width, int height) {
    const int right = width - 1;
    const int bottom = height - 1;
    switch (orientation) {
        case ImageOrientation::topRight: return {right - at.x, at.y};
        case ImageOrientation::bottomRight: return {right - at.x, bottom - at.y};
        case ImageOrientation::bottomLeft: return {at.x, bottom - at.y};
        case ImageOrientation::leftTop: return {at.y, at.x};
        case ImageOrientation::rightTop: return {at.y, bottom - at.x};
        case ImageOrientation::rightBottom: return {right - at.y, bottom - at.x};
        case ImageOrientation::leftBottom: return {right - at.y, at.x};
        default: return at;
    }
}

}  // namespace

Image uprightImage(const Image& image, ImageOrientation orientation) {
    if (orientation == ImageOrientation::topLeft || image.isEmpty()) return image;
    const bool turned = orientation >= ImageOrientation::leftTop;
    const int width = turned ? image.height() : image.width();
    const int height = turned ? image.width() : image.height();
    Data pixels(image.rgba().size());
    std::uint8_t* to = pixels.data();
    for (int y = 0; y < height; ++y) {
        for (int x = 0; x < width; ++x, to += kChannels) {
            const Pixel from = storedPixel(orientation, {x, y}, image.width(), image.height());
            const auto place = static_cast<std::size_t>(from.y) * static_cast<std::size_t>(image.width()) +
                               static_cast<std::size_t>(from.x);
            std::memcpy(to, image.rgba().data() + place * kChannels, kChannels);
        }
    }
    return {width, height, std::move(pixels)};
}

Image scaledToFit(const Image& image, int longestSide) {
    const int longer = std::max(image.width(), image.height());
    if (longer <= longestSide || image.isEmpty()) return image;
    const auto scaled = [&](int side) {
        return std::max(1, static_cast<int>(std::lround(static_cast<double>(side) * longestSide / longer)));
    };
    const int width = scaled(image.width());
    const int height = scaled(image.height());
    const auto columns = coverages(image.width(), width);
    const std::size_t sourceRow = static_cast<std::size_t>(image.width()) * kChannels;
    const std::size_t targetRow = static_cast<std::size_t>(width) * kChannels;
    Data pixels(targetRow * static_cast<std::size_t>(height));
    std::uint8_t* target = pixels.data();
    for (const Coverage& rows : coverages(image.height(), height)) {
        std::vector<float> sums(targetRow);
        const std::uint8_t* source = image.rgba().data() + rows.first * sourceRow;
        for (const float weight : rows.weights) {
            addRow(source, columns, weight, sums);
            source += sourceRow;
        }
        writeRow(sums, target);
        target += targetRow;
    }
    return {width, height, std::move(pixels)};
}

Image scaledToFill(const Image& image, PixelSize size) {
    if (image.isEmpty() || size.width <= 0 || size.height <= 0) return {};
    const double scale = std::min(static_cast<double>(image.width()) / size.width,
                                  static_cast<double>(image.height()) / size.height);
    const auto side = [scale](int length) { return std::max(1, static_cast<int>(std::lround(length * scale))); };
    const int width = std::min(image.width(), side(size.width));
    const int height = std::min(image.height(), side(size.height));
    const auto rowBytes = static_cast<std::size_t>(width) * kChannels;
    Data pixels(rowBytes * static_cast<std::size_t>(height));
    for (int row = 0; row < height; ++row) {
        const auto from = static_cast<std::size_t>((image.height() - height) / 2 + row) *
                              static_cast<std::size_t>(image.width()) +
                          static_cast<std::size_t>((image.width() - width) / 2);
        std::memcpy(pixels.data() + static_cast<std::size_t>(row) * rowBytes, image.rgba().data() + from * kChannels,
                    rowBytes);
    }
    return scaledToFit({width, height, std::move(pixels)}, std::max(size.width, size.height));
}

Result<Image> importImage(const Data& bytes, int longestSide) {
    const Image stored = TRY(Image::decode(bytes));
    return uprightImage(scaledToFit(stored, longestSide), exifOrientation(bytes));
}

}  // namespace dayward

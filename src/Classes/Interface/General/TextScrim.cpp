#include "Classes/Interface/General/TextScrim.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <optional>
#include <vector>

namespace dayward {

namespace {

constexpr double kReadableShare = 0.98;
/// Text of this contrast is read without effort.
constexpr double kComfortableContrast = 7;
/// A scrim for comfort alone leaves at least as much of the picture as it covers.
constexpr double kMostAlphaForComfort = 0.55;
constexpr std::size_t kChannels = 4;
constexpr std::size_t kMostSamples = 4096;
constexpr int kHalvings = 8;  ///< the alpha is as exact as a picture's channel

double linear(double component) {
    return component <= 0.04045 ? component / 12.92 : std::pow((component + 0.055) / 1.055, 2.4);
}

Color mixed(const Color& below, const Color& above, double alpha) {
    const auto mix = [alpha](double a, double b) { return a + (b - a) * alpha; };
    return {mix(below.red, above.red), mix(below.green, above.green), mix(below.blue, above.blue), 1};
}

/// A transparent picture shows white through.
std::vector<Color> samplesOf(const Image& image) {
    const Data& pixels = image.rgba();
    const std::size_t count = pixels.size() / kChannels;
    const std::size_t step = std::max<std::size_t>(1, count / kMostSamples);
    std::vector<Color> samples;
    for (std::size_t index = 0; index < count; index += step) {
        const std::uint8_t* pixel = pixels.data() + index * kChannels;
        samples.push_back(mixed(Color::white(), {pixel[0] / 255.0, pixel[1] / 255.0, pixel[2] / 255.0, 1},
                                pixel[3] / 255.0));
    }
    return samples;
}

/// What a scrim has to bring about: grounds that are at least, or at most, as bright as that.
class Demand {
public:
    /// Dark text needs a bright scrim and bright grounds, light text dark ones. Nothing where even the
    /// scrim alone would not do.
    static std::optional<Demand> of(const Color& text, const Color& scrim, double contrast) {
        const bool bright = scrim == Color::white();
        const double own = relativeLuminance(text) + 0.05;
        const double limit = (bright ? own * contrast : own / contrast) - 0.05;
        if (bright ? limit > 1 : limit < 0) return std::nullopt;
        return Demand(scrim, bright, limit);
    }
    [[nodiscard]] const Color& scrim() const { return scrim_; }
    [[nodiscard]] double alphaOn(const Color& ground) const {
        if (isMetBy(ground)) return 0;
        double low = 0;
        double high = 1;
        for (int step = 0; step < kHalvings; ++step) {
            const double middle = (low + high) / 2;
            (isMetBy(mixed(ground, scrim_, middle)) ? high : low) = middle;
        }
        return high;
    }

private:
    Demand(Color scrim, bool bright, double limit) : scrim_(scrim), bright_(bright), limit_(limit) {}
    [[nodiscard]] bool isMetBy(const Color& ground) const {
        const double luminance = relativeLuminance(ground);
        return bright_ ? luminance >= limit_ : luminance <= limit_;
    }

    Color scrim_;
    bool bright_;
    double limit_;
};

/// The scrim of the smaller alpha, which `alphaFor` tells for a demand; of more where that makes the text
/// comfortable to read.
template <class AlphaFor>
Color scrimFor(const Color& text, const AlphaFor& alphaFor) {
    Color scrim{0, 0, 0, 2};  // black or white does for any text
    for (const Color& color : {Color::black(), Color::white()}) {
        const auto demand = Demand::of(text, color, kLeastTextContrast);
        const double alpha = demand ? alphaFor(*demand) : scrim.alpha;
        if (alpha < scrim.alpha) scrim = {color.red, color.green, color.blue, alpha};
    }
    const auto comfort = Demand::of(text, {scrim.red, scrim.green, scrim.blue, 1}, kComfortableContrast);
    const double wanted = comfort ? alphaFor(*comfort) : 1;
    scrim.alpha = std::max(scrim.alpha, std::min(wanted, kMostAlphaForComfort));
    return scrim;
}

}  // namespace

double relativeLuminance(const Color& color) {
    return 0.2126 * linear(color.red) + 0.7152 * linear(color.green) + 0.0722 * linear(color.blue);
}

double contrastRatio(const Color& a, const Color& b) {
    const auto [darker, lighter] = std::minmax({relativeLuminance(a), relativeLuminance(b)});
    return (lighter + 0.05) / (darker + 0.05);
}

Color textScrim(const Color& text, const Image& onPicture) {
    const auto grounds = onPicture.isEmpty() ? std::vector{Color::white()} : samplesOf(onPicture);
    return scrimFor(text, [&](const Demand& demand) {
        std::vector<double> alphas;
        for (const Color& ground : grounds) alphas.push_back(demand.alphaOn(ground));
        const auto readable = static_cast<std::ptrdiff_t>(kReadableShare * static_cast<double>(alphas.size() - 1));
        std::ranges::nth_element(alphas, alphas.begin() + readable);
        return alphas[static_cast<std::size_t>(readable)];
    });
}

Color textScrim(const Color& text) {
    return scrimFor(text, [](const Demand& demand) {
        return demand.alphaOn(demand.scrim() == Color::white() ? Color::black() : Color::white());
    });
}

}  // namespace dayward

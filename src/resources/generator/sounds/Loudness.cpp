#include <algorithm>
#include <cmath>
#include <numbers>

#include "resources/generator/sounds/Samples.h"

namespace dayward::generator {
namespace {

/// A filter of the second order.
struct Biquad {
    double b0, b1, b2, a1, a2;

    [[nodiscard]] Samples filtered(const Samples& samples) const {
        Samples result;
        result.reserve(samples.size());
        double one = 0, two = 0;
        for (const float sample : samples) {
            const double out = b0 * sample + one;
            one = b1 * sample - a1 * out + two;
            two = b2 * sample - a2 * out;
            result.push_back(static_cast<float>(out));
        }
        return result;
    }
};

/// The head's lift of high tones, and the ear's deafness to the lowest.
Samples weighted(const Samples& samples) {
    const auto warped = [](double frequency) { return std::tan(std::numbers::pi * frequency / kRate); };
    const double k = warped(1681.974450955533), q = 0.7071752369554196;
    const double high = std::pow(10.0, 3.999843853973347 / 20), middle = std::pow(high, 0.4996667741545416);
    const double scale = 1 + k / q + k * k;
    const Biquad head = {(high + middle * k / q + k * k) / scale, 2 * (k * k - high) / scale,
                         (high - middle * k / q + k * k) / scale, 2 * (k * k - 1) / scale, (1 - k / q + k * k) / scale};
    const double low = warped(38.13547087602444), lowQ = 0.5003270373238773, lowScale = 1 + low / lowQ + low * low;
    const Biquad ear = {1, -2, 1, 2 * (low * low - 1) / lowScale, (1 - low / lowQ + low * low) / lowScale};
    return ear.filtered(head.filtered(samples));
}

}  // namespace

float greatestLoudness(const Samples& samples) {
    const Samples heard = weighted(samples);
    const std::size_t window = std::min(samplesIn(0.4F), heard.size()), step = samplesIn(0.1F);
    double greatest = 1e-12;
    for (std::size_t from = 0; from + window <= heard.size(); from += step) {
        double sum = 0;
        for (std::size_t index = from; index < from + window; ++index)
            sum += static_cast<double>(heard[index]) * heard[index];
        greatest = std::max(greatest, sum / static_cast<double>(window));
    }
    return static_cast<float>(-0.691 + 10 * std::log10(greatest));
}

void level(Samples& samples, float target, float peak) {
    constexpr int kRounds = 4;
    for (int round = 0; round < kRounds; ++round) {
        const float gain = std::pow(10.0F, (target - greatestLoudness(samples)) / 20);
        const float knee = peak * 0.6F, room = peak - knee;
        for (float& sample : samples) {
            const float size = std::abs(sample * gain);
            const float rounded = size <= knee ? size : knee + room * std::tanh((size - knee) / room);
            sample = std::copysign(rounded, sample);
        }
    }
}

}  // namespace dayward::generator

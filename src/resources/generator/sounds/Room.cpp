#include <array>

#include "resources/generator/sounds/Samples.h"

namespace dayward::generator {
namespace {

/// An echo that returns again and again, each time weaker and duller.
class Echo {
public:
    explicit Echo(std::size_t delay) : line_(delay) {}

    float next(float in) {
        constexpr float kReturn = 0.82F, kDull = 0.32F;
        const float out = line_[at_];
        dulled_ = out * (1 - kDull) + dulled_ * kDull;
        line_[at_] = in + dulled_ * kReturn;
        at_ = (at_ + 1) % line_.size();
        return out;
    }

private:
    Samples line_;
    std::size_t at_ = 0;
    float dulled_ = 0;
};

/// Spreads what comes in over time without colouring it.
class Diffuser {
public:
    explicit Diffuser(std::size_t delay) : line_(delay) {}

    float next(float in) {
        const float delayed = line_[at_];
        line_[at_] = in + delayed * 0.5F;
        at_ = (at_ + 1) % line_.size();
        return delayed - in;
    }

private:
    Samples line_;
    std::size_t at_ = 0;
};

}  // namespace

void addRoom(Samples& samples, float share) {
    std::array echoes = {Echo(1116), Echo(1188), Echo(1277), Echo(1356), Echo(1491), Echo(1617)};
    std::array diffusers = {Diffuser(556), Diffuser(441), Diffuser(225)};
    for (float& sample : samples) {
        float wet = 0;
        for (Echo& echo : echoes) wet += echo.next(sample);
        wet /= static_cast<float>(echoes.size());
        for (Diffuser& diffuser : diffusers) wet = diffuser.next(wet);
        sample += wet * share;
    }
}

}  // namespace dayward::generator

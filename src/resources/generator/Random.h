// Repeatable chance: the same numbers on every system. One thread at a time.
#pragma once

#include <cstdint>
#include <random>

namespace dayward::generator {

class Random {
public:
    explicit Random(std::uint32_t seed) : engine_(seed) {}

    /// From 0 up to and with 1. The library's distributions differ between systems, its engine does not.
    float share() { return static_cast<float>(engine_()) / 4294967295.0F; }
    float between(float least, float most) { return least + (most - least) * share(); }
    int below(int bound) { return static_cast<int>(engine_() % static_cast<std::uint32_t>(bound)); }

private:
    std::mt19937 engine_;
};

}  // namespace dayward::generator

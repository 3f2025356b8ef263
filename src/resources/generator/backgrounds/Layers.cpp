#include "resources/generator/backgrounds/Layers.h"

#include <numbers>

namespace dayward::generator {

float Layer::angle(const char* key, float degrees) const {
    return number(key, degrees) * std::numbers::pi_v<float> / 180;
}

std::string Layer::text(const char* key, const char* standard) const { return settings_.value(key, standard); }

Point Layer::point(const char* key, Point standard) const {
    const auto found = settings_.find(key);
    return found == settings_.end() ? standard : Point{found->at(0), found->at(1)};
}

Paint Layer::color(const char* key, const char* standard) const { return Paint::fromHex(text(key, standard)); }

std::vector<Paint> Layer::colors() const {
    const auto found = settings_.find("colors");
    if (found == settings_.end()) return {color("color", "#FFFFFF")};
    std::vector<Paint> colors;
    for (const auto& hex : *found) colors.push_back(Paint::fromHex(hex.get<std::string>()));
    return colors;
}

}  // namespace dayward::generator

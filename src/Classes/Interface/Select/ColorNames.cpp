#include "Classes/Interface/Select/ColorNames.h"

#include <algorithm>
#include <array>
#include <cmath>

#include "platform/PercentFormat.h"
#include "platform/Strings.h"
#include "resources/HHResources.h"

namespace dayward {

namespace {

/// In the order of HHResources::baseColors().
constexpr std::array kBaseNames{"White", "Silver", "Gray", "Black", "Red",  "Maroon", "Yellow",  "Olive",
                                "Lime",  "Green",  "Aqua", "Teal",  "Blue", "Navy",   "Fuchsia", "Purple"};

std::string percent(double part) { return std::to_string(std::lround(part * 100)) + "%"; }

}  // namespace

std::string nameOfColor(const Color& color) {
    const auto& base = HHResources::baseColors();
    const auto found = std::ranges::find(base, color.hex(), &Color::hex);
    const auto place = static_cast<std::size_t>(found - base.begin());
    if (found != base.end() && place < kBaseNames.size()) return localized(kBaseNames[place]);
    return formatText(localized("Red %@, green %@, blue %@"),
                      {percent(color.red), percent(color.green), percent(color.blue)});
}

}  // namespace dayward

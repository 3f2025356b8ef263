#include "Classes/Other/Date/HHDayOfWeek.h"

#include <array>

#include "platform/Strings.h"

namespace dayward {

std::vector<int> HHDayOfWeek::values() { return {1, 2, 3, 4, 5, 6, 7}; }

std::string HHDayOfWeek::descriptionByValue(int value) {
    constexpr std::array kKeys = {"Sunday", "Monday", "Tuesday", "Wednesday", "Thursday", "Friday", "Saturday"};
    if (value < 1 || value > 7) return "-";
    return localized(kKeys[static_cast<std::size_t>(value - 1)]);
}

}  // namespace dayward

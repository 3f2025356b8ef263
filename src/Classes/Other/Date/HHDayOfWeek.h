// The days of the week as numbers, 1 (Sunday) to 7 (Saturday), and their localised names. Any thread.
#pragma once

#include <string>
#include <vector>

namespace dayward {

class HHDayOfWeek {
public:
    /// 1 to 7, whatever day the user's week begins with.
    static std::vector<int> values();
    /// The main table's text for "Sunday" to "Saturday"; "-" for any other number.
    static std::string descriptionByValue(int value);
};

}  // namespace dayward

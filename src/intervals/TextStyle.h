// How much of a unit's name a text shows. The numbers are stored in archives and never change.
#pragma once

#include <cstdint>

namespace dayward {

/// Archives and settings may hold any number; whoever reads one decides what an unknown style means.
enum class TextStyle : std::int64_t {
    number = 0,  ///< the number alone
    symbol = 1,  ///< "2d"
    short_ = 2,  ///< "2 Hrs"
    full = 3,    ///< "2 Hours"
};

inline constexpr TextStyle kLastTextStyle = TextStyle::full;

}  // namespace dayward

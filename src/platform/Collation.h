// Orders of strings.
#pragma once

#include <compare>
#include <string_view>

namespace dayward {

/// Plain string order: byte by byte where both strings are ASCII, the shorter first at a common
/// prefix; otherwise the deterministic Unicode collation (UTS 10, root), no locale, no case
/// folding, ties broken by code point. Any thread.
///
/// The two halves do not join to one order: "B" < "a" by bytes, while by collation "a" < "é" < "B".
/// So sort with std::stable_sort, which bears an inconsistent comparison; std::sort may not.
std::strong_ordering plainStringOrder(std::string_view a, std::string_view b);

}  // namespace dayward

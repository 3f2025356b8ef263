// Orders of strings.
#pragma once

#include <compare>
#include <cstdint>
#include <string_view>

namespace dayward {

/// Plain string order: byte by byte where both strings are ASCII, the shorter first at a common
/// prefix; otherwise the deterministic Unicode collation (UTS 10, root), no locale, no case
/// folding, ties broken by code point. Any thread.
///
/// The two halves do not join to one order: "B" < "a" by bytes, while by collation "a" < "é" < "B".
/// So sort with std::stable_sort, which bears an inconsistent comparison; std::sort may not.
std::strong_ordering plainStringOrder(std::string_view a, std::string_view b);

/// A string prepared for comparing it often. It refers to the string, which has to outlive it.
class PlainStringKey {
public:
    PlainStringKey() = default;
    explicit PlainStringKey(std::string_view text);
    /// plainStringOrder of the strings.
    [[nodiscard]] std::strong_ordering order(const PlainStringKey& other) const {
        if (isAscii_ && other.isAscii_ && front_ != other.front_) return front_ <=> other.front_;
        return orderOfTexts(other);
    }

private:
    [[nodiscard]] std::strong_ordering orderOfTexts(const PlainStringKey& other) const;

    std::string_view text_;
    std::uint64_t front_ = 0;  ///< the first eight bytes, the first one highest; zeros behind a shorter string
    bool isAscii_ = true;
};

}  // namespace dayward

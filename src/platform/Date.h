// Instants and lengths of time.
//
// A Date is an instant: seconds since 2001-01-01 00:00:00 UTC. A TimeInterval is a length in
// seconds. They are separate types, so that an instant, a length and a plain number do not mix.
// Plain values; any thread.
#pragma once

#include <cmath>
#include <compare>
#include <cstdint>
#include <functional>

namespace dayward {

/// A length of time in seconds; may be negative or fractional.
class TimeInterval {
public:
    constexpr TimeInterval() = default;
    constexpr explicit TimeInterval(double seconds) : seconds_(seconds) {}

    [[nodiscard]] constexpr double seconds() const { return seconds_; }

    constexpr TimeInterval operator-() const { return TimeInterval(-seconds_); }
    constexpr TimeInterval operator+(TimeInterval other) const { return TimeInterval(seconds_ + other.seconds_); }
    constexpr TimeInterval operator-(TimeInterval other) const { return TimeInterval(seconds_ - other.seconds_); }
    constexpr TimeInterval operator*(double factor) const { return TimeInterval(seconds_ * factor); }
    constexpr TimeInterval operator/(double divisor) const { return TimeInterval(seconds_ / divisor); }
    constexpr auto operator<=>(const TimeInterval&) const = default;

private:
    double seconds_ = 0;
};

/// Rounded down; what lies beyond ±4·10^18 is taken for that limit, NaN for 0.
inline std::int64_t wholeSeconds(double seconds) {
    constexpr double kFarthest = 4e18;
    if (!(seconds > -kFarthest && seconds < kFarthest)) [[unlikely]] {
        return std::isnan(seconds) ? 0 : static_cast<std::int64_t>(std::copysign(kFarthest, seconds));
    }
    const auto towardsZero = static_cast<std::int64_t>(seconds);
    return towardsZero - (static_cast<double>(towardsZero) > seconds ? 1 : 0);
}

/// An instant. Dates compare by their raw number; the same instant is the same number.
class Date {
public:
    /// Seconds from 1970-01-01 00:00:00 UTC to 2001-01-01 00:00:00 UTC.
    static constexpr double kReferenceSince1970 = 978307200.0;

    constexpr Date() = default;

    static constexpr Date sinceReference(double seconds) { return Date(seconds); }
    static constexpr Date since1970(double seconds) { return Date(seconds - kReferenceSince1970); }

    [[nodiscard]] constexpr double secondsSinceReference() const { return seconds_; }
    [[nodiscard]] constexpr double secondsSince1970() const { return seconds_ + kReferenceSince1970; }

    constexpr Date operator+(TimeInterval length) const { return Date(seconds_ + length.seconds()); }
    constexpr Date operator-(TimeInterval length) const { return Date(seconds_ - length.seconds()); }
    constexpr TimeInterval operator-(Date other) const { return TimeInterval(seconds_ - other.seconds_); }
    constexpr auto operator<=>(const Date&) const = default;

private:
    constexpr explicit Date(double seconds) : seconds_(seconds) {}
    double seconds_ = 0;
};

/// From 1970-01-01 00:00:00 UTC to the reference date.
inline constexpr auto kReferenceSeconds = static_cast<std::int64_t>(Date::kReferenceSince1970);

}  // namespace dayward

template <>
struct std::hash<dayward::Date> {
    std::size_t operator()(dayward::Date date) const noexcept {
        return std::hash<double>{}(date.secondsSinceReference());
    }
};

#include <array>

#include "platform/Calendar.h"
#include "platform/CalendarAddition.h"

namespace dayward {

using namespace arithmetic;

namespace {

/// A unit that is counted on the wall clock: which amount it adds to, how many at a time, and about
/// how long that is.
struct WallClockUnit {
    CalendarUnit unit;
    std::int64_t CalendarAmounts::*amount;
    std::int64_t multiple;
    double averageSeconds;
};

constexpr std::array kWallClockUnits = {
    WallClockUnit{CalendarUnit::year, &CalendarAmounts::years, 1, 31556952},
    WallClockUnit{CalendarUnit::quarter, &CalendarAmounts::months, 3, 7889238},
    WallClockUnit{CalendarUnit::month, &CalendarAmounts::months, 1, 2629746},
    WallClockUnit{CalendarUnit::weekOfYear, &CalendarAmounts::days, 7, 604800},
    WallClockUnit{CalendarUnit::weekOfMonth, &CalendarAmounts::days, 7, 604800},
    WallClockUnit{CalendarUnit::week, &CalendarAmounts::days, 7, 604800},
    WallClockUnit{CalendarUnit::day, &CalendarAmounts::days, 1, 86400},
};

struct ElapsedUnit {
    CalendarUnit unit;
    double seconds;
};

constexpr std::array kElapsedUnits = {
    ElapsedUnit{CalendarUnit::hour, 3600},
    ElapsedUnit{CalendarUnit::minute, 60},
    ElapsedUnit{CalendarUnit::second, 1},
    ElapsedUnit{CalendarUnit::nanosecond, 1e-9},
};

class Distance {
public:
    Distance(const TimeZone& zone, Date from, Date to)
        : zone_(zone), from_(from), to_(to), reached_(from), sign_(to < from ? -1 : 1) {}

    /// The biggest number of units, of the distance's sign, that does not pass the target.
    std::int64_t take(const WallClockUnit& unit) {
        const double estimate = std::floor((to_ - reached_).seconds() * sign_ / unit.averageSeconds);
        auto count = static_cast<std::int64_t>(std::max(estimate, 0.0));
        while (count > 0 && passesTarget(after(unit, count))) --count;
        while (!passesTarget(after(unit, count + 1))) ++count;
        if (count != 0) {
            reached_ = after(unit, count);
            amounts_.*unit.amount += count * sign_ * unit.multiple;
        }
        return count * sign_;
    }

    std::int64_t take(const ElapsedUnit& unit) {
        const double left = (to_ - reached_).seconds();
        const double count = std::trunc(unit.seconds < 1 ? left * 1e9 : left / unit.seconds);
        constexpr double kFarthest = 9e18;
        const double taken = std::clamp(count, -kFarthest, kFarthest);
        reached_ = reached_ + TimeInterval(taken * unit.seconds);
        return static_cast<std::int64_t>(taken);
    }

private:
    [[nodiscard]] Date after(const WallClockUnit& unit, std::int64_t count) const {
        CalendarAmounts amounts = amounts_;
        amounts.*unit.amount += count * sign_ * unit.multiple;
        return addAmounts(zone_, amounts, from_);
    }
    [[nodiscard]] bool passesTarget(Date date) const { return sign_ > 0 ? date > to_ : date < to_; }

    const TimeZone& zone_;
    Date from_, to_;
    CalendarAmounts amounts_;
    Date reached_;
    int sign_;
};

}  // namespace

DateComponents Calendar::components(CalendarUnits units, Date from, Date to) const {
    Distance distance(zone_, Date::sinceReference(clampedSeconds(from.secondsSinceReference())),
                      Date::sinceReference(clampedSeconds(to.secondsSinceReference())));
    DateComponents result;
    for (const WallClockUnit& unit : kWallClockUnits) {
        if (units.contains(unit.unit)) *result.field(unit.unit) = distance.take(unit);
    }
    for (const ElapsedUnit& unit : kElapsedUnits) {
        if (units.contains(unit.unit)) *result.field(unit.unit) = distance.take(unit);
    }
    return result;
}

}  // namespace dayward

#include "platform/PosixZone.h"

#include "platform/CivilDay.h"

namespace dayward {

namespace {

constexpr std::int32_t kHour = 3600;

bool isDigit(char c) { return c >= '0' && c <= '9'; }
bool isLetter(char c) { return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z'); }

class Reader {
public:
    explicit Reader(std::string_view text) : rest_(text) {}

    [[nodiscard]] bool atEnd() const { return rest_.empty(); }
    [[nodiscard]] bool sees(char c) const { return !rest_.empty() && rest_.front() == c; }
    bool take(char c) {
        if (!sees(c)) return false;
        rest_.remove_prefix(1);
        return true;
    }

    bool name() {
        const bool quoted = take('<');
        std::size_t length = 0;
        while (length < rest_.size() && isOfName(rest_[length], quoted)) ++length;
        rest_.remove_prefix(length);
        return length >= 3 && (!quoted || take('>'));
    }

    std::optional<int> number(int minimum, int maximum) {
        int value = 0;
        std::size_t length = 0;
        while (length < rest_.size() && length < 4 && isDigit(rest_[length]))
            value = value * 10 + (rest_[length++] - '0');
        if (length == 0 || value < minimum || value > maximum) return std::nullopt;
        rest_.remove_prefix(length);
        return value;
    }

    /// [+-]hh[:mm[:ss]] in seconds.
    std::optional<std::int32_t> time(int maximumHours) {
        const bool negative = take('-');
        if (!negative) take('+');
        const auto hours = number(0, maximumHours);
        if (!hours) return std::nullopt;
        std::int32_t seconds = *hours * kHour;
        for (const int unit : {60, 1}) {
            if (!take(':')) break;
            const auto part = number(0, 59);
            if (!part) return std::nullopt;
            seconds += *part * unit;
        }
        return negative ? -seconds : seconds;
    }

    std::optional<PosixZone::Change> change() {
        if (!take(',')) return std::nullopt;
        PosixZone::Change change;
        if (!day(change)) return std::nullopt;
        if (!take('/')) return change;
        const auto moment = time(167);
        if (!moment) return std::nullopt;
        change.time = *moment;
        return change;
    }

private:
    static bool isOfName(char c, bool quoted) {
        return isLetter(c) || (quoted && (isDigit(c) || c == '+' || c == '-'));
    }

    bool day(PosixZone::Change& change) {
        if (take('M')) return weekdayOfMonth(change);
        const bool julian = take('J');
        change.kind = julian ? PosixZone::Change::Kind::julianWithoutLeapDay : PosixZone::Change::Kind::dayOfYear;
        const auto number = this->number(julian ? 1 : 0, 365);
        change.day = number.value_or(0);
        return number.has_value();
    }

    bool weekdayOfMonth(PosixZone::Change& change) {
        change.kind = PosixZone::Change::Kind::weekdayOfMonth;
        const auto month = number(1, 12);
        if (!month || !take('.')) return false;
        const auto week = number(1, 5);
        if (!week || !take('.')) return false;
        const auto weekday = number(0, 6);
        if (!weekday) return false;
        change.month = *month;
        change.week = *week;
        change.weekday = *weekday;
        return true;
    }

    std::string_view rest_;
};

std::int64_t dayInYear(const PosixZone::Change& change, std::int64_t year) {
    if (change.kind == PosixZone::Change::Kind::dayOfYear) return dayNumberOf(year, 1, 1 + change.day);
    if (change.kind == PosixZone::Change::Kind::julianWithoutLeapDay) {
        const int leapDay = isLeapYear(year) && change.day >= 60 ? 1 : 0;
        return dayNumberOf(year, 1, change.day + leapDay);
    }
    const std::int64_t first = dayNumberOf(year, change.month, 1);
    std::int64_t day = floorModulo(change.weekday - weekdayIndexOf(first), 7) + (change.week - 1) * 7;
    if (day >= daysInMonthOf(year, change.month)) day -= 7;
    return first + day;
}

}  // namespace

std::int64_t PosixZone::Change::inYear(std::int64_t year) const { return dayInYear(*this, year) * 86400 + time; }

std::optional<PosixZone> PosixZone::parse(std::string_view text) {
    Reader reader(text);
    PosixZone zone;
    if (!reader.name()) return std::nullopt;
    const auto west = reader.time(24);
    if (!west) return std::nullopt;
    zone.offset = -*west;
    if (reader.atEnd()) return zone;

    DaylightSaving saving;
    if (!reader.name()) return std::nullopt;
    saving.offset = zone.offset + kHour;
    if (!reader.atEnd() && !reader.sees(',')) {
        const auto savingWest = reader.time(24);
        if (!savingWest) return std::nullopt;
        saving.offset = -*savingWest;
    }
    // POSIX leaves the dates of a text without rules open; these are the customary ones.
    if (reader.atEnd()) reader = Reader(",M3.2.0,M11.1.0");
    const auto start = reader.change();
    const auto end = start ? reader.change() : std::nullopt;
    if (!end || !reader.atEnd()) return std::nullopt;
    saving.start = *start;
    saving.end = *end;
    zone.daylightSaving = saving;
    return zone;
}

}  // namespace dayward

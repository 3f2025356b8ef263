#include "intervals/ISODate.h"

#include <cstdint>
#include <cstdio>
#include <cstdlib>

#include "platform/Environment.h"

namespace dayward {
namespace {

constexpr std::int64_t kLargestYear = 999999;

/// Takes pieces from the front of a text; once one does not fit, `failed` stays set.
class Scanner {
public:
    explicit Scanner(std::string_view text) : rest_(text) {}

    [[nodiscard]] bool atEnd() const { return rest_.empty(); }
    [[nodiscard]] bool failed() const { return failed_; }
    [[nodiscard]] char next() const { return rest_.empty() ? '\0' : rest_.front(); }

    bool take(std::string_view anyOf) {
        if (rest_.empty() || anyOf.find(rest_.front()) == std::string_view::npos) return false;
        rest_.remove_prefix(1);
        return true;
    }
    void require(std::string_view anyOf) { failed_ |= !take(anyOf); }

    /// A number of that many digits, within the bounds.
    std::int64_t number(std::size_t digits, std::int64_t least, std::int64_t most) {
        std::int64_t value = 0;
        for (std::size_t index = 0; index < digits; ++index) value = value * 10 + digit();
        failed_ |= value < least || value > most;
        return value;
    }
    double fraction() {
        double value = 0;
        double weight = 0.1;
        do {
            value += weight * static_cast<double>(digit());
            weight /= 10;
        } while (next() >= '0' && next() <= '9');
        return value;
    }
    [[nodiscard]] std::size_t digitsAhead() const {
        const auto end = rest_.find_first_not_of("0123456789");
        return end == std::string_view::npos ? rest_.size() : end;
    }

private:
    std::int64_t digit() {
        if (next() < '0' || next() > '9') {
            failed_ = true;
            return 0;
        }
        const std::int64_t value = next() - '0';
        rest_.remove_prefix(1);
        return value;
    }

    std::string_view rest_;
    bool failed_ = false;
};

std::int64_t takeYear(Scanner& scanner) {
    const bool negative = scanner.next() == '-';
    const bool isSigned = scanner.take("+-");
    const std::size_t digits = isSigned ? scanner.digitsAhead() : 4;
    const auto year = scanner.number(digits >= 4 && digits <= 6 ? digits : 4, 0, kLargestYear);
    return negative ? -year : year;
}

std::int64_t takeOffset(Scanner& scanner) {
    if (scanner.take("Z")) return 0;
    const bool west = scanner.next() == '-';
    scanner.require("+-");
    std::int64_t seconds = scanner.number(2, 0, 23) * 3600;
    scanner.take(":");
    seconds += scanner.number(2, 0, 59) * 60;
    if (scanner.take(":")) seconds += scanner.number(2, 0, 59);
    return west ? -seconds : seconds;
}

std::string offsetText(std::int64_t seconds) {
    const auto magnitude = std::abs(seconds);
    char text[16];
    const int length = std::snprintf(text, sizeof text, "%c%02d:%02d", seconds < 0 ? '-' : '+',
                                     static_cast<int>(magnitude / 3600), static_cast<int>(magnitude / 60 % 60));
    std::string offset(text, static_cast<std::size_t>(length));
    // Local mean times of old have seconds.
    if (magnitude % 60 != 0) {
        offset += ':';
        offset += static_cast<char>('0' + magnitude % 60 / 10);
        offset += static_cast<char>('0' + magnitude % 10);
    }
    return offset;
}

}  // namespace

std::string isoText(Date date, const Calendar& calendar) {
    const auto fields = calendar.fields(date);
    const bool plain = fields.year >= 0 && fields.year <= 9999;
    char text[64];
    const int length = std::snprintf(
        text, sizeof text, plain ? "%04lld-%02d-%02dT%02d:%02d:%02d" : "%+05lld-%02d-%02dT%02d:%02d:%02d",
        static_cast<long long>(fields.year), fields.month, fields.day, fields.hour, fields.minute, fields.second);
    return std::string(text, static_cast<std::size_t>(length)) + offsetText(calendar.timeZone().secondsFromUTC(date));
}

std::string isoText(Date date) { return isoText(date, *Environment::current().calendar()); }

std::optional<Date> dateFromISOText(std::string_view text, const Calendar& calendar) {
    Scanner scanner(text);
    Calendar::Fields fields;
    double fraction = 0;
    fields.year = takeYear(scanner);
    scanner.require("-");
    fields.month = static_cast<int>(scanner.number(2, 1, 12));
    scanner.require("-");
    fields.day = static_cast<int>(scanner.number(2, 1, 31));
    if (!scanner.atEnd()) {
        scanner.require("T ");
        fields.hour = static_cast<int>(scanner.number(2, 0, 23));
        scanner.require(":");
        fields.minute = static_cast<int>(scanner.number(2, 0, 59));
        if (scanner.take(":")) fields.second = static_cast<int>(scanner.number(2, 0, 59));
        if (scanner.take(".")) fraction = scanner.fraction();
    }
    std::optional<std::int64_t> offset;
    if (!scanner.atEnd()) offset = takeOffset(scanner);
    if (scanner.failed() || !scanner.atEnd()) return std::nullopt;
    if (fields.day > Calendar::daysInMonth(fields.year, fields.month)) return std::nullopt;
    const TimeInterval beyond(fraction - static_cast<double>(offset.value_or(0)));
    return (offset ? Calendar(TimeZone::utc()) : calendar).date(fields) + beyond;
}

std::optional<Date> dateFromISOText(std::string_view text) {
    return dateFromISOText(text, *Environment::current().calendar());
}

}  // namespace dayward

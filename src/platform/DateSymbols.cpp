#include <map>

#include <unicode/dtfmtsym.h>

#include "platform/DateFormatter.h"
#include "platform/IcuSupport.h"
#include "platform/Mutex.h"

namespace dayward {

namespace {

using icu::DateFormatSymbols;

constexpr int kMonths = 12;

std::vector<std::string> namesOf(const icu::UnicodeString* names, int count, int first, int length) {
    std::vector<std::string> result;
    for (int i = first; i < first + length && i < count; ++i) result.push_back(textOf(names[i]));
    return result;
}

class Reader {
public:
    explicit Reader(const Locale& locale) : symbols_(icuLocaleOf(locale), status_) {}

    [[nodiscard]] std::vector<std::string> months(DateFormatSymbols::DtContextType context,
                                                  DateFormatSymbols::DtWidthType width) const {
        int count = 0;
        const auto* names = symbols_.getMonths(count, context, width);
        return namesOf(names, count, 0, kMonths);
    }
    /// ICU's weekday names begin at index 1.
    [[nodiscard]] std::vector<std::string> weekdays(DateFormatSymbols::DtContextType context,
                                                    DateFormatSymbols::DtWidthType width) const {
        int count = 0;
        const auto* names = symbols_.getWeekdays(count, context, width);
        return namesOf(names, count, 1, 7);
    }

private:
    UErrorCode status_ = U_ZERO_ERROR;
    DateFormatSymbols symbols_;
};

DateSymbols read(const Locale& locale) {
    constexpr auto kFormat = DateFormatSymbols::FORMAT, kStandalone = DateFormatSymbols::STANDALONE;
    constexpr auto kWide = DateFormatSymbols::WIDE, kShort = DateFormatSymbols::ABBREVIATED,
                   kNarrow = DateFormatSymbols::NARROW;
    const Reader reader(locale);
    DateSymbols symbols;
    symbols.months = reader.months(kFormat, kWide);
    symbols.shortMonths = reader.months(kFormat, kShort);
    symbols.veryShortMonths = reader.months(kFormat, kNarrow);
    symbols.standaloneMonths = reader.months(kStandalone, kWide);
    symbols.shortStandaloneMonths = reader.months(kStandalone, kShort);
    symbols.veryShortStandaloneMonths = reader.months(kStandalone, kNarrow);
    symbols.weekdays = reader.weekdays(kFormat, kWide);
    symbols.shortWeekdays = reader.weekdays(kFormat, kShort);
    symbols.veryShortWeekdays = reader.weekdays(kFormat, kNarrow);
    symbols.standaloneWeekdays = reader.weekdays(kStandalone, kWide);
    symbols.shortStandaloneWeekdays = reader.weekdays(kStandalone, kShort);
    symbols.veryShortStandaloneWeekdays = reader.weekdays(kStandalone, kNarrow);
    return symbols;
}

}  // namespace

const DateSymbols& DateSymbols::of(const Locale& locale) {
    static Mutex mutex;
    static std::map<std::string, DateSymbols> known;
    const Lock lock(mutex);
    const auto found = known.find(locale.identifier());
    return found != known.end() ? found->second : known.emplace(locale.identifier(), read(locale)).first->second;
}

}  // namespace dayward

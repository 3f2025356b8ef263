// Words for a whole interval: its set units one after the other, "1 Year 2 Days", "- 3 Hours".
//
// Settings only; one thread at a time. `defaultUnitFormatter` is made on first use from the settings
// as they stand then: changing `style` afterwards does not reach it.
#pragma once

#include <map>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "intervals/TextStyle.h"
#include "intervals/XDIDateInterval.h"
#include "intervals/XDIUnitIntervalFormatter.h"

namespace dayward {

class XDIFormatter {
public:
    TextStyle style = TextStyle::number;
    std::string separator = " ";
    std::size_t maxUnits = 0;  ///< how many units are shown at most; 0 means no limit
    /// The units in the order of the text.
    std::vector<CalendarUnit> innerUnits{CalendarUnit::year, CalendarUnit::month,  CalendarUnit::week,  CalendarUnit::day,
                                         CalendarUnit::hour, CalendarUnit::minute, CalendarUnit::second};

    [[nodiscard]] Locale locale() const;
    void setLocale(Locale locale) { locale_ = std::move(locale); }
    [[nodiscard]] NumberFormatter numberFormatter() const;
    void setNumberFormatter(NumberFormatter formatter) { numberFormatter_ = std::move(formatter); }

    [[nodiscard]] XDIUnitIntervalFormatter& defaultUnitFormatter();
    void setDefaultUnitFormatter(std::shared_ptr<XDIUnitIntervalFormatter> formatter);
    /// The formatter that was set for the unit, or null.
    [[nodiscard]] std::shared_ptr<XDIUnitIntervalFormatter> formatterForUnit(CalendarUnit unit) const;
    /// Null removes the unit's own formatter.
    void setFormater(std::shared_ptr<XDIUnitIntervalFormatter> formatter, CalendarUnit forUnit);

    /// Zero units are left out, but seconds and units that are shown always. An interval with only
    /// zeros reads as 0 of its last set unit; one with nothing set is empty. A negative value among
    /// those shown puts "- " before the whole.
    [[nodiscard]] std::string stringForDateInterval(const XDIDateInterval& interval);
    [[nodiscard]] static std::string stringForDateInterval(const XDIDateInterval& interval, TextStyle style);

private:
    std::optional<Locale> locale_;
    std::optional<NumberFormatter> numberFormatter_;
    std::shared_ptr<XDIUnitIntervalFormatter> defaultUnitFormatter_;
    std::map<CalendarUnit, std::shared_ptr<XDIUnitIntervalFormatter>> unitFormatters_;
};

}  // namespace dayward

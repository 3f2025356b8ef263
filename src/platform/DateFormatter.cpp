#include "platform/DateFormatter.h"

#include <cmath>
#include <map>

#include <unicode/dtptngen.h>
#include <unicode/gregocal.h>
#include <unicode/simpletz.h>
#include <unicode/smpdtfmt.h>

#include "platform/IcuSupport.h"
#include "platform/Mutex.h"

namespace dayward {

namespace {

/// What the clocks of a zone have at one instant. ICU formats with this instead of its own, older
/// copy of the zone data; it still finds the zone's names by the identifier.
class MomentaryZone final : public icu::SimpleTimeZone {
public:
    MomentaryZone(const dayward::TimeZone& zone, Date date)
        : icu::SimpleTimeZone(static_cast<std::int32_t>(zone.secondsFromUTC(date)) * 1000, icuTextOf(zone.name())),
          isDaylightSaving_(zone.isDaylightSaving(date)) {}
    MomentaryZone(const MomentaryZone&) = default;

    MomentaryZone* clone() const override { return new MomentaryZone(*this); }
    UBool inDaylightTime(UDate, UErrorCode&) const override { return isDaylightSaving_; }

private:
    bool isDaylightSaving_;
};

constexpr std::u16string_view kZoneLetters = u"zZOvVXx";
constexpr std::u16string_view kNumericLetters = u"yudHhkKmsSAD";

/// The letters of a pattern's fields, each as often as it stands there, and no quoted text.
std::u16string fieldLetters(const icu::UnicodeString& pattern) {
    std::u16string letters;
    bool isQuoted = false;
    for (std::int32_t i = 0; i < pattern.length(); ++i) {
        const char16_t c = pattern[i];
        if (c == u'\'') isQuoted = !isQuoted;
        if (!isQuoted && ((c >= u'a' && c <= u'z') || (c >= u'A' && c <= u'Z'))) letters += c;
    }
    return letters;
}

bool isNumericPattern(const std::u16string& letters) {
    if (letters.find(u"MMM") != std::u16string::npos) return false;
    return letters.find_first_not_of(std::u16string(kNumericLetters) + u'M') == std::u16string::npos;
}

/// Narrow no-break spaces before "PM" are newer than what users and other programs type and expect.
icu::UnicodeString withPlainSpaces(icu::UnicodeString text) {
    return text.findAndReplace(icu::UnicodeString(char16_t{0x202F}), icu::UnicodeString(u' '));
}

UDate millisecondsSince1970(double sinceReference) { return (sinceReference + Date::kReferenceSince1970) * 1000; }

bool isWithinReach(Date date) {
    constexpr double kFarthest = 1e14;  // about three million years; ICU's own limit is a little farther
    return std::abs(date.secondsSinceReference()) <= kFarthest;
}

std::unique_ptr<icu::SimpleDateFormat> prepared(std::unique_ptr<icu::DateFormat> format, const icu::Locale& locale) {
    auto* simple = dynamic_cast<icu::SimpleDateFormat*>(format.get());
    UErrorCode status = U_ZERO_ERROR;
    auto calendar = std::make_unique<icu::GregorianCalendar>(*icu::TimeZone::getGMT(), locale, status);
    if (simple == nullptr || U_FAILURE(status)) return nullptr;
    calendar->setGregorianChange(-8.64e18, status);  // no Julian dates before 1582
    simple->adoptCalendar(calendar.release());
    simple->setLenient(false);
    icu::UnicodeString pattern;
    simple->applyPattern(withPlainSpaces(simple->toPattern(pattern)));
    format.release();
    return std::unique_ptr<icu::SimpleDateFormat>(simple);
}

}  // namespace

struct DateFormatter::Impl {
    Impl(std::unique_ptr<icu::SimpleDateFormat> dateFormat, const TimeZone& timeZone)
        : zone(timeZone), format(std::move(dateFormat)) {
        if (!format) return;
        icu::UnicodeString pattern;
        const std::u16string letters = fieldLetters(format->toPattern(pattern));
        namesZone = letters.find_first_of(kZoneLetters) != std::u16string::npos;
        isNumeric = isNumericPattern(letters);
    }

    /// The wall-clock time that the text names, as milliseconds since 1970 on that clock; or the
    /// instant itself where the pattern holds a zone.
    std::optional<UDate> parse(const icu::UnicodeString& text) const {
        const Lock lock(mutex);
        format->adoptTimeZone(icu::TimeZone::getGMT()->clone());
        icu::ParsePosition position(0);
        const UDate parsed = format->parse(text, position);
        if (position.getErrorIndex() >= 0 || position.getIndex() != text.length()) return std::nullopt;
        // ICU gives digits of one field to its neighbour; such a text is not of the pattern.
        icu::UnicodeString again;
        if (isNumeric && format->format(parsed, again) != text) return std::nullopt;
        return parsed;
    }

    TimeZone zone;
    bool namesZone = false;
    bool isNumeric = false;
    mutable Mutex mutex;
    std::unique_ptr<icu::SimpleDateFormat> format;  ///< guarded by the mutex; null where there is nothing to write
};

DateFormatter DateFormatter::withPattern(std::string_view pattern, const Locale& locale, const TimeZone& zone) {
    const icu::Locale icuLocale = icuLocaleOf(locale);
    UErrorCode status = U_ZERO_ERROR;
    auto format = std::make_unique<icu::SimpleDateFormat>(icuTextOf(pattern), icuLocale, status);
    DateFormatter result;
    result.impl_ =
        std::make_shared<const Impl>(U_SUCCESS(status) ? prepared(std::move(format), icuLocale) : nullptr, zone);
    return result;
}

DateFormatter DateFormatter::withStyles(Style dateStyle, Style timeStyle, const Locale& locale, const TimeZone& zone) {
    const auto icuStyle = [](Style style) {
        return style == Style::none
                   ? icu::DateFormat::kNone
                   : static_cast<icu::DateFormat::EStyle>(icu::DateFormat::kShort + 1 - static_cast<int>(style));
    };
    DateFormatter result;
    std::unique_ptr<icu::DateFormat> format;
    const icu::Locale icuLocale = icuLocaleOf(locale);
    if (dateStyle != Style::none || timeStyle != Style::none) {
        format.reset(icu::DateFormat::createDateTimeInstance(icuStyle(dateStyle), icuStyle(timeStyle), icuLocale));
    }
    result.impl_ = std::make_shared<const Impl>(format ? prepared(std::move(format), icuLocale) : nullptr, zone);
    return result;
}

std::string DateFormatter::dateFormatFromTemplate(std::string_view dateTemplate, const Locale& locale) {
    static Mutex mutex;
    static std::map<std::string, std::unique_ptr<icu::DateTimePatternGenerator>> generators;
    const Lock lock(mutex);
    auto& generator = generators[locale.identifier()];
    UErrorCode status = U_ZERO_ERROR;
    if (!generator) generator.reset(icu::DateTimePatternGenerator::createInstance(icuLocaleOf(locale), status));
    if (!generator) return std::string(dateTemplate);
    const auto pattern = generator->getBestPattern(icuTextOf(dateTemplate), status);
    return U_SUCCESS(status) ? textOf(withPlainSpaces(pattern)) : std::string(dateTemplate);
}

std::string DateFormatter::stringFromDate(Date date) const {
    if (!impl_->format || !isWithinReach(date)) return {};
    const Lock lock(impl_->mutex);
    impl_->format->adoptTimeZone(new MomentaryZone(impl_->zone, date));
    icu::UnicodeString text;
    return textOf(impl_->format->format(millisecondsSince1970(date.secondsSinceReference()), text));
}

std::optional<Date> DateFormatter::dateFromString(std::string_view text) const {
    constexpr std::size_t kLongest = 1000;
    if (!impl_->format || text.size() > kLongest) return std::nullopt;
    const auto parsed = impl_->parse(icuTextOf(text));
    if (!parsed) return std::nullopt;
    const double seconds = *parsed / 1000 - Date::kReferenceSince1970;
    return impl_->namesZone ? Date::sinceReference(seconds) : impl_->zone.instantOfLocal(seconds);
}

}  // namespace dayward

// Conversions between our values and ICU's, for the sources that use ICU. Private to this library.
#pragma once

#include <string>
#include <string_view>

#include <unicode/locid.h>
#include <unicode/unistr.h>

#include "platform/Locale.h"

namespace dayward {

/// With the Gregorian calendar, whatever calendar the region prefers.
inline icu::Locale icuLocaleOf(const Locale& locale) {
    icu::Locale result(locale.identifier().c_str());
    UErrorCode status = U_ZERO_ERROR;
    result.setKeywordValue("calendar", "gregorian", status);
    return result;
}

inline icu::UnicodeString icuTextOf(std::string_view text) {
    return icu::UnicodeString::fromUTF8(icu::StringPiece(text.data(), static_cast<std::int32_t>(text.size())));
}

inline std::string textOf(const icu::UnicodeString& text) {
    std::string result;
    return text.toUTF8String(result);
}

}  // namespace dayward

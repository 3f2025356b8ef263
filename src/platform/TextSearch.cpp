#include "platform/TextSearch.h"

#include <unicode/uchar.h>
#include <unicode/unistr.h>

namespace dayward {

namespace {

icu::UnicodeString folded(std::string_view text) {
    return icu::UnicodeString::fromUTF8(icu::StringPiece(text.data(), static_cast<std::int32_t>(text.size()))).foldCase();
}

}  // namespace

bool containsIgnoringCase(std::string_view text, std::string_view part) {
    if (part.empty() || text.empty()) return false;
    return folded(text).indexOf(folded(part)) >= 0;
}

int columnsOfCodePoint(char32_t point) {
    const auto character = static_cast<UChar32>(point);
    const int type = u_charType(character);
    if (type == U_CONTROL_CHAR || type == U_NON_SPACING_MARK || type == U_ENCLOSING_MARK || type == U_FORMAT_CHAR) return 0;
    const int width = u_getIntPropertyValue(character, UCHAR_EAST_ASIAN_WIDTH);
    return width == U_EA_FULLWIDTH || width == U_EA_WIDE ? 2 : 1;
}

}  // namespace dayward

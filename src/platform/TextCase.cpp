#include "platform/TextCase.h"

#include "platform/IcuSupport.h"

namespace dayward {

std::string capitalized(std::string_view text, const Locale& locale) {
    auto words = icuTextOf(text);
    words.toTitle(nullptr, icuLocaleOf(locale));
    return textOf(words);
}

}  // namespace dayward

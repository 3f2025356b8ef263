#include "platform/Collation.h"

#include <algorithm>
#include <memory>

#include <unicode/coll.h>

#include "platform/FatalError.h"

namespace dayward {

namespace {

bool isAscii(std::string_view text) {
    return std::ranges::all_of(text, [](char c) { return static_cast<unsigned char>(c) < 0x80; });
}

const icu::Collator& rootCollator() {
    static const std::unique_ptr<icu::Collator> collator = [] {
        UErrorCode status = U_ZERO_ERROR;
        std::unique_ptr<icu::Collator> made(icu::Collator::createInstance(icu::Locale::getRoot(), status));
        if (!made || U_FAILURE(status)) fatalError("the root collation cannot be loaded");
        return made;
    }();
    return *collator;
}

icu::StringPiece pieceOf(std::string_view text) { return {text.data(), static_cast<std::int32_t>(text.size())}; }

std::strong_ordering collationOrder(std::string_view a, std::string_view b) {
    UErrorCode status = U_ZERO_ERROR;
    const UCollationResult order = rootCollator().compareUTF8(pieceOf(a), pieceOf(b), status);
    // The bytes of UTF-8 order as the code points do.
    if (U_FAILURE(status) || order == UCOL_EQUAL) return a <=> b;
    return order == UCOL_LESS ? std::strong_ordering::less : std::strong_ordering::greater;
}

}  // namespace

std::strong_ordering plainStringOrder(std::string_view a, std::string_view b) {
    return isAscii(a) && isAscii(b) ? a <=> b : collationOrder(a, b);
}

PlainStringKey::PlainStringKey(std::string_view text) : text_(text), isAscii_(isAscii(text)) {
    for (std::size_t index = 0; index < sizeof front_; ++index) {
        front_ = front_ << 8 | (index < text.size() ? static_cast<unsigned char>(text[index]) : 0);
    }
}

std::strong_ordering PlainStringKey::orderOfTexts(const PlainStringKey& other) const {
    return isAscii_ && other.isAscii_ ? text_ <=> other.text_ : collationOrder(text_, other.text_);
}

}  // namespace dayward

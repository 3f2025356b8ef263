// Brings the units in a text of XDIFormatter into agreement with their numbers.
//
// The tables of that formatter know two forms, one for exactly 1; a language with more, as Russian, reads
// wrong by them: "2 Недель". The names of XIDLocaleName.h have all forms: "2 Недели".
#pragma once

#include <string>

namespace dayward {

/// What the units stand for in their sentence.
enum class UnitRole {
    alone,   ///< a length as such: "21 Неделя"
    period,  ///< what something happens every … of: "21 Неделю"; the table has it under "week-period"
};

/// The text with each whole number's unit in its right form; all else stays. Texts of languages in which
/// the two forms do are not changed.
[[nodiscard]] std::string unitsInAgreement(const std::string& text, UnitRole role);

}  // namespace dayward

// Small questions about Unicode texts. Any thread.
#pragma once

#include <string_view>

namespace dayward {

/// Whether `part` stands in `text`, letter case aside (full Unicode case folding), otherwise
/// literally. An empty part is found nowhere.
bool containsIgnoringCase(std::string_view text, std::string_view part);

/// Columns that a terminal gives the character (UAX 11): 0 for controls and combining marks, 2 for wide ones.
int columnsOfCodePoint(char32_t point);

}  // namespace dayward

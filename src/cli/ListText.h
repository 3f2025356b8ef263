// The list for people: aligned columns, sections under their titles.
#pragma once

#include <string>
#include <vector>

#include "cli/ListSections.h"

namespace dayward {

struct ListTextOptions {
    int width = 80;
    bool colour = false;
    bool identifiers = false;  ///< a column with the events' identifiers
    int maximumLines = 0;      ///< 0: no limit; else the list is cut and says so
};

std::string listText(const std::vector<ListSection>& sections, const ListTextOptions& options);

}  // namespace dayward

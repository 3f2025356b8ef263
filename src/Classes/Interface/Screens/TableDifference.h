// Turns the present sections of a screen into new ones step by step, telling each step.
#pragma once

#include <vector>

#include "Classes/Interface/Screens/TableRow.h"
#include "Classes/Interface/Screens/TableUpdates.h"

namespace dayward {

/// Sections and rows are the same where their ids are. Each step is done before it is told; rows keep
/// no old action. `updates` may be null. Ids that occur twice stop the process.
void updateSections(std::vector<TableSection>& present, std::vector<TableSection> wanted, TableUpdates* updates);

}  // namespace dayward

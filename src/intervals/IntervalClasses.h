// The archive classes of this folder.
#pragma once

#include "platform/Archivable.h"

namespace dayward {

/// XDIDateInterval and XDIUnitInterval.
void registerIntervalClasses(ArchiveClasses& classes);

}  // namespace dayward

// The archive classes of this folder.
#pragma once

#include "platform/Archivable.h"

namespace dayward {

/// The older calendars and the intervals that they stored.
void registerRecurrenceClasses(ArchiveClasses& classes);

}  // namespace dayward

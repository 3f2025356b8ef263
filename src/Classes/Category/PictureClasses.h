// Makes archives of pictures, templates, categories and their older forms readable.
#pragma once

#include "platform/Archivable.h"

namespace dayward {

/// Pictures, templates and the category by their short names, the older records by their own, and
/// the random templates also by the names that they had under the two editions' modules.
void registerPictureClasses(ArchiveClasses& classes);

}  // namespace dayward

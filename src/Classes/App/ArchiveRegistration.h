// Every class that an archive of this program may hold.
#pragma once

#include <memory>

#include "platform/Archivable.h"

namespace dayward {

std::shared_ptr<const ArchiveClasses> allArchiveClasses();

}  // namespace dayward

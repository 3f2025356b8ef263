// The archive classes of this library.
#pragma once

namespace dayward {

class ArchiveClasses;

void registerFoundationClasses(ArchiveClasses& classes);

}  // namespace dayward

// The first launch on a home: records the install and puts the default events into the empty store.
#pragma once

#include "Submodules/CorpLibrary2/App/CCApp.h"
#include "platform/Result.h"

namespace dayward {

class Environment;

/// Does nothing on a home where an install is recorded. Otherwise, with other processes kept out, adds
/// the default events, waits until they are on the disk, and records the install and the first start.
/// Where they cannot be written nothing is recorded and nothing stays in the store, so that the next
/// launch tries again.
Result<> performFirstLaunchIfNeeded(Environment& environment, const CCApp::Information& information);

}  // namespace dayward

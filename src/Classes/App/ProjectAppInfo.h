// Configuration values about the program's surroundings: its sibling edition, and what may be switched
// from afar.
#pragma once

#include "Submodules/CorpLibrary2/App/CCAppExValues.h"

namespace dayward {

struct ProjectAppInfo {
    static constexpr const char* siblingStoreIdentifier = "";
    static constexpr const char* siblingUrlScheme = "dayward-free";

    // False without a container of remote switches.
    static bool sendShareImage() { return CCAppExValues::booleanForKey("sendShareImage"); }
    static bool sendEventsImage() { return CCAppExValues::booleanForKey("sendEventsImage"); }
};

}  // namespace dayward

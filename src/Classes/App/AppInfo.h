// Configuration values of this edition of the program.
#pragma once

#include <string>

#include "Submodules/CorpLibrary2/App/CCApp.h"

namespace dayward {

struct AppInfo {
    static constexpr const char* appId = "19";
    static constexpr const char* storeIdentifier = "";  ///< not in a store
    static constexpr const char* tagContainerIdentifier = "dayward";
    static constexpr const char* urlScheme = "dayward";

    /// What the program says about itself.
    static CCApp::Information information(const std::string& version) {
        return {
            .bundleIdentifier = "dayward", .displayName = "Dayward", .shortVersion = version, .bundleVersion = version};
    }
};

}  // namespace dayward

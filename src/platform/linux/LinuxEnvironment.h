// The real parts of an environment, put together.
#pragma once

#include <memory>
#include <optional>
#include <string>

#include "platform/Environment.h"

namespace dayward {

class AsioQueues;

struct LinuxOptions {
    std::string home;              ///< empty: $DAYWARD_HOME or the XDG directories
    std::string resources;         ///< the program's own files
    TimeInterval shift;            ///< added to the device's clock
    std::optional<Date> fixedNow;  ///< a clock that stands still there
    std::string zone;              ///< empty: the device's
    std::string locale;            ///< empty: the user's
    std::shared_ptr<const ArchiveClasses> archiveClasses;
    std::shared_ptr<Queues> queues;   ///< null: AsioQueues, this thread the main one
    std::string logName = "dayward";  ///< the log is LOGNAME.log in the state directory
    bool errorsToStandardError = false;
    bool debugLog = false;
};

/// Makes the directories that are missing and sweeps temporaries of dead processes. Fails where a
/// directory cannot be made, the zone is unknown or the texts cannot be read.
Result<Environment::Services> makeLinuxServices(const LinuxOptions& options);

}  // namespace dayward

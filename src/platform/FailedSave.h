// Tells that a change of the user's is in memory only, since it could not be written. Who writes it has logged
// the error and keeps the change for another try. Any thread.
#pragma once

#include "platform/Result.h"

namespace dayward {

class Environment;
class UserDefaults;

inline constexpr const char* DidFailToSaveNotification = "DidFailToSaveNotification";
/// The errno where there is one.
inline constexpr const char* FailedSaveCodeKey = "code";
/// In the operating system's words, or all that the error says.
inline constexpr const char* FailedSaveReasonKey = "reason";

/// Posts the notification on the calling thread. `sender` is the identity of what failed, or null.
void tellFailedSave(Environment& environment, const void* sender, const Error& error);

/// Writes the defaults after a change of the user's; tells where that fails.
void saveDefaults(Environment& environment, UserDefaults& defaults);

}  // namespace dayward

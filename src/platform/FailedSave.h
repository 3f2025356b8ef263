// Tells that a change of the user's is in memory only, since it could not be written. Who writes it has logged
// the error and keeps the change for another try. Any thread.
#pragma once

#include "platform/Result.h"

namespace dayward {

class Environment;

inline constexpr const char* DidFailToSaveNotification = "DidFailToSaveNotification";
/// The errno where there is one.
inline constexpr const char* FailedSaveCodeKey = "code";
/// In the operating system's words, or all that the error says.
inline constexpr const char* FailedSaveReasonKey = "reason";

/// Posts the notification on the calling thread. `sender` is the identity of what failed.
void tellFailedSave(Environment& environment, const void* sender, const Error& error);

}  // namespace dayward

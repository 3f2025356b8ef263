// What the user is told of a change that could not be written.
#pragma once

#include <string>

namespace dayward {

struct Notification;

/// For a DidFailToSaveNotification: one sentence in the user's language. A reason that has no text of its own stands
/// in the operating system's words.
std::string failedSaveText(const Notification& notification);

}  // namespace dayward

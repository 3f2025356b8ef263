#include "platform/FailedSave.h"

#include "platform/Environment.h"
#include "platform/NotificationCenter.h"
#include "platform/UserDefaults.h"

namespace dayward {

void tellFailedSave(Environment& environment, const void* sender, const Error& error) {
    const auto reason = error.userInfo.find("reason");
    Dictionary told{{FailedSaveReasonKey, reason != error.userInfo.end() ? reason->second : error.description()}};
    if (error.domain == "file") told.insert_or_assign(FailedSaveCodeKey, error.code);
    environment.notifications().post(DidFailToSaveNotification, sender, std::move(told));
}

void saveDefaults(Environment& environment, UserDefaults& defaults) {
    const Result<> written = defaults.synchronize();
    if (!written) tellFailedSave(environment, &defaults, written.error());
}

}  // namespace dayward

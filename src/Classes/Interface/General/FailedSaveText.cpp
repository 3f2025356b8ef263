#include "Classes/Interface/General/FailedSaveText.h"

#include <cerrno>

#include "platform/FailedSave.h"
#include "platform/NotificationCenter.h"
#include "platform/PercentFormat.h"
#include "platform/Strings.h"

namespace dayward {

namespace {

/// Empty for those that users seldom meet.
std::string reasonOfCode(std::int64_t code) {
    switch (code) {
        case ENOSPC:
        case EDQUOT: return localized("there is no space left");
        case EACCES:
        case EPERM: return localized("there is no permission to write");
        case EROFS: return localized("the disk can only be read");
        case EIO: return localized("the disk reports an error");
        case ENOENT:
        case ENOTDIR:
        case ENODEV:
        case ENXIO:
        case ENOTCONN:
        case ESTALE: return localized("the folder cannot be reached");
        default: return {};
    }
}

}  // namespace

std::string failedSaveText(const Notification& notification) {
    const auto& told = notification.userInfo;
    const auto code = told.find(FailedSaveCodeKey);
    const std::string known = code != told.end() ? reasonOfCode(code->second.integer().value_or(0)) : "";
    const std::string reason = known.empty() ? told.at(FailedSaveReasonKey).stringValue().value_or("") : known;
    return formatText(localized("Changes are not saved: %@"), {reason});
}

}  // namespace dayward

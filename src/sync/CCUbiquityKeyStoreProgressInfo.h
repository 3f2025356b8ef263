// How far a cloud store's transfers are, and the notifications that tell it: start, progress and finish of
// the phase in which something is missing here. Object the store; any thread.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "platform/Archivable.h"

namespace dayward {

/// User info "progressInfo": a CCUbiquityKeyStoreProgressInfo.
inline constexpr const char* CCUbiquityKeyStoreStartDownloadingNotification =
    "CCUbiquityKeyStoreStartDownloadingNotification";
inline constexpr const char* CCUbiquityKeyStoreProgressDownloadingNotification =
    "CCUbiquityKeyStoreProgressDownloadingNotification";
inline constexpr const char* CCUbiquityKeyStoreFinishDownloadingNotification =
    "CCUbiquityKeyStoreFinishDownloadingNotification";
inline constexpr const char* CCUbiquityKeyStoreProgressInfoKey = "progressInfo";

/// An object so that a notification can carry it; never archived.
class CCUbiquityKeyStoreProgressInfo final : public Archivable {
public:
    static constexpr const char* kClassName = "CCUbiquityKeyStoreProgressInfo";

    std::int64_t itemsCount = 0;
    std::int64_t downloadedCount = 0;
    double downloadedPercent = 1;  ///< 0 to 1
    std::int64_t uploadedCount = 0;
    double uploadedPercent = 1;  ///< 0 to 1

    [[nodiscard]] std::vector<std::string> archiveClassNames() const override { return {kClassName}; }
    void encodeWithCoder(KeyedArchiver&) const override {}
};

}  // namespace dayward

// Keeps the events of the user's devices equal through a shared folder.
#pragma once

#include "platform/Application.h"

namespace dayward {

class CloudService {
public:
    virtual ~CloudService() = default;
    /// Gets ready to follow the application's life; tells the user where the folder is missing. Main thread.
    virtual void configure() = 0;
    /// Fetches while the application is in the background; blocks. Not on the main thread.
    virtual BackgroundFetchResult performBackgroundSynch() = 0;
};

/// There is no shared folder.
class NoCloud final : public CloudService {
public:
    void configure() override {}
    BackgroundFetchResult performBackgroundSynch() override { return BackgroundFetchResult::noData; }
};

}  // namespace dayward

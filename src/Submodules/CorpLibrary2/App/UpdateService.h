// Brings an older release's data up to date before the window is shown.
#pragma once

#include <functional>

namespace dayward {

class UpdateService {
public:
    /// Whether anything was done.
    using Done = std::function<void(bool)>;

    virtual ~UpdateService() = default;
    /// Calls `done` on the main thread: at once with false where there is nothing to do.
    virtual void performUpdateIfNeeds(Done done) = 0;
};

/// No release before this one left anything to be brought up to date.
class NoUpdates final : public UpdateService {
public:
    void performUpdateIfNeeds(Done done) override { done(false); }
};

}  // namespace dayward

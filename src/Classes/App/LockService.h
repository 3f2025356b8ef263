// Hides the events until the device's owner has proved who they are. Main thread.
#pragma once

namespace dayward {

class LockService {
public:
    virtual ~LockService() = default;
    /// The user wants it.
    [[nodiscard]] virtual bool useSecrecy() const = 0;
    /// Puts the lock over everything, unless it is there already or not wanted.
    virtual void showAuthorizeIfNeeds() = 0;
};

/// This device cannot check its owner.
class NoLock final : public LockService {
public:
    [[nodiscard]] bool useSecrecy() const override { return false; }
    void showAuthorizeIfNeeds() override {}
};

}  // namespace dayward

// The present moment. Everything that asks for now asks the environment's clock.
#pragma once

#include <atomic>

#include "platform/Date.h"

namespace dayward {

class Clock {
public:
    virtual ~Clock() = default;
    [[nodiscard]] virtual Date now() const = 0;
};

/// The device's wall clock, shifted by a fixed length: "as of" another moment, and running.
class SystemClock final : public Clock {
public:
    explicit SystemClock(TimeInterval shift = {}) : shift_(shift) {}
    [[nodiscard]] Date now() const override;

private:
    TimeInterval shift_;
};

/// A clock that stands still until it is set. Any thread.
class FixedClock final : public Clock {
public:
    explicit FixedClock(Date now) : now_(now.secondsSinceReference()) {}
    [[nodiscard]] Date now() const override { return Date::sinceReference(now_.load()); }
    void set(Date now) { now_.store(now.secondsSinceReference()); }
    void advance(TimeInterval length) { set(now() + length); }

private:
    std::atomic<double> now_;
};

}  // namespace dayward

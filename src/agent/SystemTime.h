// The device's clocks and zone. No wake-up between two moments.
#pragma once

#include "agent/AgentWait.h"
#include "platform/linux/WallClockAlarm.h"

namespace dayward {

class SystemTime final : public AgentWait {
public:
    static Result<SystemTime> make();

    [[nodiscard]] Date now() const override;
    [[nodiscard]] TimeInterval elapsed() const override;
    [[nodiscard]] TimeZone zone() const override { return zone_; }
    void arm(const NextWake& next) override;
    void readZone() override { zone_ = TimeZone::system(); }

    [[nodiscard]] pollfd descriptor() const override { return {alarm_.descriptor(), POLLIN, 0}; }
    [[nodiscard]] std::optional<TimeInterval> timeout() const override;

private:
    void ring() override { (void)alarm_.take(); }
    explicit SystemTime(WallClockAlarm alarm) : alarm_(std::move(alarm)) {}

    WallClockAlarm alarm_;
    TimeZone zone_ = TimeZone::system();
    std::optional<TimeInterval> retryAt_;
};

}  // namespace dayward

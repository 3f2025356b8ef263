// Ends an agent for which there is nothing to do: its home has never had an alert. The bus starts it again.
#pragma once

#include <algorithm>
#include <functional>

#include "agent/AgentTime.h"
#include "agent/EventSource.h"

namespace dayward {

class IdleEnd final : public EventSource {
public:
    static constexpr TimeInterval kAfter{60};

    IdleEnd(const AgentTime& time, std::function<bool()> isNeeded)
        : time_(time), isNeeded_(std::move(isNeeded)), end_(time.elapsed() + kAfter) {}

    [[nodiscard]] bool isOver() const { return !isNeeded_() && time_.elapsed() >= end_; }

    [[nodiscard]] pollfd descriptor() const override { return {-1, 0, 0}; }
    [[nodiscard]] std::optional<TimeInterval> timeout() const override {
        if (isNeeded_()) return std::nullopt;
        return std::max(end_ - time_.elapsed(), TimeInterval());
    }
    void dispatch() override {}

private:
    const AgentTime& time_;
    const std::function<bool()> isNeeded_;
    const TimeInterval end_;
};

}  // namespace dayward

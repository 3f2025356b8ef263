// Files that other processes change, as something to wait for.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "agent/EventSource.h"
#include "platform/linux/PathWatch.h"

namespace dayward {

class FilesSource final : public EventSource {
public:
    FilesSource(PathWatch watch, std::function<void()> didChange)
        : watch_(std::move(watch)), didChange_(std::move(didChange)) {}

    [[nodiscard]] pollfd descriptor() const override { return {watch_.descriptor(), POLLIN, 0}; }
    void dispatch() override {
        if (watch_.take()) didChange_();
    }

private:
    PathWatch watch_;
    std::function<void()> didChange_;
};

}  // namespace dayward

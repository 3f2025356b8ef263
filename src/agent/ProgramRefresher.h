// Runs the command line program to schedule everything anew.
#pragma once

#include <sys/types.h>

#include <string>
#include <vector>

#include "agent/EventSource.h"
#include "agent/ScheduleRefresher.h"
#include "platform/linux/FileDescriptor.h"

namespace dayward {

class ProgramRefresher final : public ScheduleRefresher, public EventSource {
public:
    /// The path of a program and its arguments, asked for before each start.
    using Command = std::function<std::vector<std::string>()>;
    explicit ProgramRefresher(Command command) : command_(std::move(command)) {}

    Result<> start(std::function<void(bool)> done) override;

    [[nodiscard]] pollfd descriptor() const override { return {process_.get(), POLLIN, 0}; }
    void dispatch() override;

private:
    const Command command_;
    FileDescriptor process_;  ///< readable at its end; none while nothing runs
    pid_t number_ = 0;
    std::function<void(bool)> done_;
};

}  // namespace dayward

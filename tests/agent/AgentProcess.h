// A process of dayward-agent whose clock a file drives, and the lines that it prints.
#pragma once

#include <sys/types.h>

#include <string>
#include <vector>

#include "platform/linux/FileDescriptor.h"

namespace dayward {

class AgentProcess {
public:
    /// Starts the program; its errors go to the file.
    AgentProcess(const std::string& program, const std::string& home, const std::string& clock,
                 const std::string& errors);
    ~AgentProcess();
    AgentProcess(AgentProcess&&) = delete;

    [[nodiscard]] int number() const { return number_; }
    /// What it has printed since it was asked last, without waiting. Also after it was killed.
    std::vector<std::string> lines();
    /// Waits until it prints something; false where it prints nothing for long, or has ended.
    [[nodiscard]] bool waitForLines();
    /// SIGKILL. Returns when it is gone.
    void kill();
    /// It ended by itself: a crash.
    [[nodiscard]] bool hasEnded();
    /// Lets its files not grow, as on a full disk, or grow again.
    void limitFiles(bool isLimited);

private:
    pid_t number_ = -1;
    bool isKilled_ = false;
    FileDescriptor output_;
    std::string unread_;
};

}  // namespace dayward

// A clock that a test drives by a file of one line: "NUMBER pass SECONDS" lets the time go by until then, seconds
// since 1970, over every moment in between; "NUMBER jump SECONDS" is a clock that was set, or a sleep. "done NUMBER"
// is printed when everything until then is done.
#pragma once

#include <string>

#include "agent/AgentWait.h"
#include "platform/linux/PathWatch.h"

namespace dayward {

class DrivenTime final : public AgentWait {
public:
    /// The file must be there; the clock starts where its line leads to.
    static Result<DrivenTime> make(const std::string& path);

    [[nodiscard]] Date now() const override { return now_; }
    [[nodiscard]] TimeInterval elapsed() const override { return elapsed_; }
    [[nodiscard]] TimeZone zone() const override { return TimeZone::system(); }
    void arm(const NextWake& next) override;
    void readZone() override {}

    [[nodiscard]] pollfd descriptor() const override { return {watch_.descriptor(), POLLIN, 0}; }
    [[nodiscard]] std::optional<TimeInterval> timeout() const override;

private:
    DrivenTime(PathWatch watch, std::string path) : watch_(std::move(watch)), path_(std::move(path)) {}

    void ring() override;
    bool readLine();
    void advance(Date moment);

    PathWatch watch_;
    std::string path_;
    std::string number_;       ///< of the line
    bool isTold_ = false;      ///< that it is done
    Date now_, target_;
    TimeInterval elapsed_;
    NextWake next_;
};

}  // namespace dayward

#include "agent/DrivenTime.h"

#include <algorithm>
#include <cstdio>
#include <fstream>

namespace dayward {

Result<DrivenTime> DrivenTime::make(const std::string& path) {
    DrivenTime time(TRY(PathWatch::make({path})), path);
    if (!time.readLine()) return failure("driven clock", 0, {{"path", path}, {"reason", "no line of a time"}});
    time.now_ = time.target_;
    return time;
}

/// False where the line is not another one.
bool DrivenTime::readLine() {
    std::ifstream file(path_);
    std::string number, kind;
    double seconds = 0;
    if (!(file >> number >> kind >> seconds) || number == number_) return false;
    number_ = number;
    isTold_ = false;
    target_ = Date::since1970(seconds);
    if (kind == "jump") now_ = target_;
    return true;
}

void DrivenTime::advance(Date moment) {
    elapsed_ = elapsed_ + (moment - now_);
    now_ = moment;
}

void DrivenTime::arm(const NextWake& next) {
    next_ = next;
    if (next_.retry && next_.retry->seconds() > 0) {
        const Date retry = now_ + *next_.retry;
        next_.moment = next_.moment ? std::min(*next_.moment, retry) : retry;
    }
    if (isTold_ || next_.isBusy || now_ < target_) return;
    isTold_ = true;
    std::printf("done %s\n", number_.c_str());
    std::fflush(stdout);
}

std::optional<TimeInterval> DrivenTime::timeout() const {
    return now_ < target_ && !next_.isBusy ? std::optional(TimeInterval()) : std::nullopt;
}

void DrivenTime::ring() {
    if (watch_.take() && readLine()) return;
    if (now_ < target_ && !next_.isBusy) advance(std::min(target_, next_.moment.value_or(target_)));
}

}  // namespace dayward

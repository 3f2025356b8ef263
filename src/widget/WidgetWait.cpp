#include "widget/WidgetWait.h"

#include <poll.h>

#include <array>
#include <cerrno>
#include <istream>

#include "intervals/ISODate.h"
#include "platform/Clock.h"

namespace dayward {

Result<SystemWait> SystemWait::make(Options options) {
    std::vector<std::string> paths{options.copy};
    if (options.zone) paths.insert(paths.end(), {"/etc/localtime", "/etc/timezone"});
    WallClockAlarm alarm = TRY(WallClockAlarm::make());
    PathWatch watch = TRY(PathWatch::make(std::move(paths)));
    return SystemWait(options.shift, std::move(alarm), std::move(watch));
}

Date SystemWait::now() const { return SystemClock(shift_).now(); }

void SystemWait::arm(std::optional<Date> moment) {
    alarm_.arm(moment ? std::optional(*moment - shift_) : std::nullopt);
}

std::optional<WidgetWait::Wake> SystemWait::wake() {
    const auto ring = alarm_.take();
    if (watch_.take() || ring == WallClockAlarm::Ring::clockSet) return Wake::changed;
    return ring ? std::optional(Wake::time) : std::nullopt;
}

WidgetWait::Wake SystemWait::until(std::optional<Date> moment) {
    arm(moment);
    for (;;) {
        std::array<pollfd, 3> waiting{{{timer(), POLLIN, 0}, {watches(), POLLIN, 0}, {STDOUT_FILENO, 0, 0}}};
        if (poll(waiting.data(), waiting.size(), -1) < 0 && errno != EINTR) return Wake::end;
        if ((waiting[2].revents & (POLLERR | POLLHUP | POLLNVAL)) != 0) return Wake::end;
        if (const auto woken = wake()) return *woken;
    }
}

WidgetWait::Wake DrivenWait::until(std::optional<Date> moment) {
    for (;;) {
        if (moment && *moment <= target_) {
            now_ = std::max(now_, *moment);
            return Wake::time;
        }
        now_ = target_;
        std::string line;
        if (!std::getline(lines_, line)) return Wake::end;
        if (line == "changed") return Wake::changed;
        const auto time = dateFromISOText(line);
        if (!time) return Wake::end;
        target_ = *time;
        if (target_ < now_) {  // the clock is set back
            now_ = target_;
            return Wake::changed;
        }
    }
}

}  // namespace dayward

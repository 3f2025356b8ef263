#include "widget/WidgetWait.h"

#include <poll.h>
#include <sys/inotify.h>
#include <sys/stat.h>
#include <sys/timerfd.h>

#include <array>
#include <cerrno>
#include <cmath>
#include <cstdint>
#include <cstring>
#include <filesystem>
#include <istream>

#include "intervals/ISODate.h"
#include "platform/Clock.h"

namespace dayward {
namespace {

constexpr const char* kZoneDirectory = "/etc";
constexpr std::uint32_t kChanges =
    IN_CLOSE_WRITE | IN_CREATE | IN_DELETE | IN_MOVED_FROM | IN_MOVED_TO | IN_DELETE_SELF | IN_MOVE_SELF;

std::unexpected<Error> systemFailure(const char* operation) {
    return failure(std::string(operation) + ": " + std::strerror(errno));
}

/// Another text once another file is there.
std::string stampOf(const std::string& path) {
    struct stat status{};
    if (lstat(path.c_str(), &status) != 0) return "-";
    return std::to_string(status.st_ino) + ' ' + std::to_string(status.st_size) + ' ' +
           std::to_string(status.st_mtim.tv_sec) + '.' + std::to_string(status.st_mtim.tv_nsec) + ' ';
}

/// The directory of the file, or the nearest that there is.
std::string nearestDirectory(const std::string& file) {
    std::filesystem::path directory = std::filesystem::path(file).parent_path();
    std::error_code error;
    while (directory.has_relative_path() && !std::filesystem::is_directory(directory, error)) {
        directory = directory.parent_path();
    }
    return directory.string();
}

itimerspec alarmAt(std::optional<Date> moment) {
    itimerspec alarm{};
    if (!moment) return alarm;
    const double seconds = std::max(moment->secondsSince1970(), 0.001);
    alarm.it_value.tv_sec = static_cast<time_t>(std::floor(seconds));
    alarm.it_value.tv_nsec = static_cast<long>((seconds - std::floor(seconds)) * 1e9);
    return alarm;
}

}  // namespace

Result<SystemWait> SystemWait::make(Options options) {
    SystemWait wait(std::move(options));
    wait.timer_ = FileDescriptor(timerfd_create(CLOCK_REALTIME, TFD_CLOEXEC | TFD_NONBLOCK));
    if (!wait.timer_) return systemFailure("timer");
    wait.inotify_ = FileDescriptor(inotify_init1(IN_CLOEXEC | IN_NONBLOCK));
    if (!wait.inotify_) return systemFailure("watch");
    if (wait.options_.zone) inotify_add_watch(wait.inotify_.get(), kZoneDirectory, kChanges);
    wait.watch();
    wait.stamps_ = wait.stamps();
    return wait;
}

Date SystemWait::now() const { return SystemClock(options_.shift).now(); }

std::string SystemWait::stamps() const {
    std::string stamps = stampOf(options_.copy);
    if (options_.zone) stamps += stampOf("/etc/localtime") + stampOf("/etc/timezone");
    return stamps;
}

void SystemWait::watch() {
    std::string directory = nearestDirectory(options_.copy);
    if (directory == watchedDirectory_) return;
    if (copyWatch_ >= 0) inotify_rm_watch(inotify_.get(), copyWatch_);
    copyWatch_ = inotify_add_watch(inotify_.get(), directory.c_str(), kChanges);
    watchedDirectory_ = std::move(directory);
}

/// Without a moment the timer stands far ahead, so that it still tells when the clock is set.
void SystemWait::arm(std::optional<Date> moment) {
    const Date alarm = moment ? *moment - options_.shift : SystemClock().now() + TimeInterval(1e9);
    const itimerspec spec = alarmAt(alarm);
    timerfd_settime(timer_.get(), TFD_TIMER_ABSTIME | TFD_TIMER_CANCEL_ON_SET, &spec, nullptr);
}

std::optional<WidgetWait::Wake> SystemWait::wake() {
    std::uint64_t expirations = 0;
    const bool hasRung = read(timer_.get(), &expirations, sizeof expirations) > 0;
    const bool clockWasSet = !hasRung && errno == ECANCELED;
    alignas(inotify_event) std::array<char, 4096> events;
    bool sawEvents = false;
    while (read(inotify_.get(), events.data(), events.size()) > 0) sawEvents = true;
    if (sawEvents) watch();
    if (sawEvents && stamps_ != stamps()) {
        stamps_ = stamps();
        return Wake::changed;
    }
    if (clockWasSet) return Wake::changed;
    return hasRung ? std::optional(Wake::time) : std::nullopt;
}

WidgetWait::Wake SystemWait::until(std::optional<Date> moment) {
    arm(moment);
    for (;;) {
        std::array<pollfd, 3> waiting{
            {{timer_.get(), POLLIN, 0}, {inotify_.get(), POLLIN, 0}, {STDOUT_FILENO, 0, 0}}};
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

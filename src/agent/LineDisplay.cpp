#include "agent/LineDisplay.h"

#include <unistd.h>

#include <cerrno>
#include <cstring>

namespace dayward {

namespace {

/// In one write, so that a line is there whole or not at all.
Result<> tell(const std::string& line) {
    const std::string whole = line + "\n";
    if (::write(STDOUT_FILENO, whole.data(), whole.size()) == static_cast<ssize_t>(whole.size())) return {};
    return failure("display", errno, {{"reason", std::strerror(errno)}});
}

}  // namespace

Result<> LineDisplay::show(const DueAlert& alert) {
    return tell("show " + alert.key + ' ' + std::to_string(alert.due.secondsSince1970()) +
                (alert.isLate ? " late " : " now ") + alert.notification.alertBody.value_or(""));
}

Result<> LineDisplay::showDigest(const std::vector<DueAlert>& alerts) {
    std::string line = "digest";
    for (const DueAlert& alert : alerts) line += ' ' + alert.key;
    return tell(line);
}

void LineDisplay::withdraw(const std::string& key) { (void)tell("withdraw " + key); }

void LineDisplay::setBadgeNumber(std::int64_t number) { (void)tell("badge " + std::to_string(number)); }

Result<> LineLink::open(const LocalNotification& notification) {
    return tell("open " + notification.alertBody.value_or(""));
}

}  // namespace dayward

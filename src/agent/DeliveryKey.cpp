#include "agent/DeliveryKey.h"

#include <charconv>
#include <cstdint>
#include <cstdio>
#include <string_view>

#include "alerts/EventNotification.h"
#include "platform/TimeZone.h"

namespace dayward {

namespace {

/// Of two different numbers never the same.
std::string textOf(double number) {
    char text[32];
    return {text, std::to_chars(text, text + sizeof text, number).ptr};
}

std::string timeText(const LocalNotification& notification) {
    const auto& date = notification.fireDate;
    if (!date) return "never";
    const auto zone = notification.timeZone ? TimeZone::named(*notification.timeZone) : failure("no zone");
    if (!zone) return "instant " + textOf(date->secondsSinceReference());
    const double local = zone->localOfInstant(*date);
    // Where the clock is put back, a time occurs twice.
    const bool isSecondPass = zone->instantOfLocal(local) < *date;
    return "wall clock " + textOf(local) + (isSecondPass ? " again" : "");
}

/// FNV-1a, 128 bits.
std::string digest(std::string_view text) {
    __extension__ using Word = unsigned __int128;
    constexpr Word kPrime = (Word(1) << 88) + 0x13B;
    Word state = (Word(0x6c62272e07bb0142) << 64) + 0x62b821756295c58d;
    for (const unsigned char byte : text) state = (state ^ byte) * kPrime;
    char digits[33];
    std::snprintf(digits, sizeof digits, "%016llx%016llx", static_cast<unsigned long long>(state >> 64),
                  static_cast<unsigned long long>(state));
    return digits;
}

}  // namespace

std::string deliveryKey(const LocalNotification& notification) {
    return digest(timeText(notification) + '\n' + eventIdentifier(notification).value_or("") + '\n' +
                  notification.alertBody.value_or(""));
}

}  // namespace dayward

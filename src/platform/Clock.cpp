#include "platform/Clock.h"

#include <chrono>

namespace dayward {

Date SystemClock::now() const {
    const auto sinceEpoch = std::chrono::system_clock::now().time_since_epoch();
    return Date::since1970(std::chrono::duration<double>(sinceEpoch).count()) + shift_;
}

}  // namespace dayward

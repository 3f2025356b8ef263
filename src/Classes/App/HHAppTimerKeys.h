// What the application's timer posts while the application is active.
#pragma once

namespace dayward {

struct HHAppTimerKeys {
    /// Once a second, without user info. Screens with a live countdown listen to it while in sight.
    static constexpr const char* everySecound = "HHAppTimerEverySecound";
};

}  // namespace dayward

// Hears notifications for a screen, on the main thread: at once where they are posted there, else as soon
// as the main queue comes to it. What is on its way when the observer ends is dropped.
#pragma once

#include <memory>
#include <string>
#include <thread>
#include <vector>

#include "platform/NotificationCenter.h"

namespace dayward {

class ScreenObserver {
public:
    /// Made, used and ended on the main thread.
    ScreenObserver() = default;

    void observe(std::string name, NotificationCenter::Handler handler, const void* object = nullptr);
    /// Ends all observations; new ones may follow.
    void end();

private:
    const std::thread::id mainThread_ = std::this_thread::get_id();
    std::shared_ptr<int> life_ = std::make_shared<int>();
    std::vector<NotificationCenter::Observation> observations_;
};

}  // namespace dayward

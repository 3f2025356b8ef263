// Keeps the notifications that pass, one line of text each, in the order of their posting:
// "NAME", or "NAME key=[a b] other=[]" with the user info's arrays. Any thread.
#pragma once

#include <algorithm>
#include <functional>
#include <initializer_list>
#include <string>
#include <thread>
#include <vector>

#include "platform/Environment.h"
#include "platform/NotificationCenter.h"

namespace dayward {

class NotificationRecorder {
public:
    using Describe = std::function<std::string(const Object&)>;

    /// `describe` tells an array's element that is no string.
    NotificationRecorder(Environment& environment, std::initializer_list<const char*> names, Describe describe = {},
                         const void* object = nullptr)
        : describe_(std::move(describe)) {
        for (const char* name : names)
            observations_.push_back(environment.notifications().addObserver(
                name, [this](const Notification& n) { keep(n); }, object));
    }

    /// The lines since the last call.
    [[nodiscard]] std::vector<std::string> take() {
        const Lock lock(mutex_);
        return std::exchange(lines_, {});
    }
    [[nodiscard]] std::vector<std::thread::id> threads() const {
        const Lock lock(mutex_);
        return threads_;
    }

private:
    void keep(const Notification& notification) {
        std::string line = notification.name;
        for (const auto& [key, value] : notification.userInfo) line += " " + key + "=[" + joined(value) + "]";
        const Lock lock(mutex_);
        lines_.push_back(std::move(line));
        threads_.push_back(std::this_thread::get_id());
    }

    [[nodiscard]] std::string joined(const Object& value) const {
        if (value.array() == nullptr) return "?";
        std::vector<std::string> words;
        for (const Object& element : *value.array())
            words.push_back(element.string() != nullptr ? *element.string() : describe_ ? describe_(element) : "?");
        std::ranges::sort(words);
        std::string text;
        for (const std::string& word : words) text += (text.empty() ? "" : " ") + word;
        return text;
    }

    const Describe describe_;
    mutable Mutex mutex_;
    std::vector<std::string> lines_ DAYWARD_GUARDED_BY(mutex_);
    std::vector<std::thread::id> threads_ DAYWARD_GUARDED_BY(mutex_);
    std::vector<NotificationCenter::Observation> observations_;
};

}  // namespace dayward

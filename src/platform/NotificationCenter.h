// Named notifications between objects of one process. Observers are called on the posting thread,
// in the order in which they were added, outside the centre's lock. Any thread.
#pragma once

#include <cstdint>
#include <functional>
#include <map>
#include <memory>
#include <string>

#include "platform/Mutex.h"
#include "platform/Object.h"

namespace dayward {

struct Notification {
    std::string name;
    const void* object = nullptr;  ///< the sender's identity
    Dictionary userInfo;
};

class NotificationCenter : public std::enable_shared_from_this<NotificationCenter> {
public:
    using Handler = std::function<void(const Notification&)>;

    /// Ends the observation when it is destroyed. A handler that is running on another thread at
    /// that moment has finished when the destructor returns; on the same thread it goes on.
    class Observation {
    public:
        Observation() = default;
        Observation(Observation&&) noexcept;
        Observation& operator=(Observation&&) noexcept;
        ~Observation();
        void end();

    private:
        friend class NotificationCenter;
        struct Entry;
        std::shared_ptr<Entry> entry_;
        std::weak_ptr<NotificationCenter> center_;
    };

    /// Calls the handler for each notification of that name; of that object only, if one is given.
    [[nodiscard]] Observation addObserver(std::string name, Handler handler, const void* object = nullptr);
    void post(const std::string& name, const void* object, Dictionary userInfo = {});

private:
    Mutex mutex_;
    std::multimap<std::string, std::shared_ptr<Observation::Entry>> entries_ DAYWARD_GUARDED_BY(mutex_);
};

}  // namespace dayward

#include "Classes/Interface/Screens/ScreenObserver.h"

#include <utility>

#include "platform/DispatchQueue.h"
#include "platform/Environment.h"

namespace dayward {

void ScreenObserver::observe(std::string name, NotificationCenter::Handler handler, const void* object) {
    Environment& environment = Environment::current();
    observations_.push_back(environment.notifications().addObserver(
        std::move(name),
        [life = std::weak_ptr(life_), main = mainThread_, &queues = environment.queues(),
         handler = std::move(handler)](const Notification& notification) {
            if (std::this_thread::get_id() == main) return handler(notification);
            queues.main().async([life, handler, notification] {
                if (!life.expired()) handler(notification);
            });
        },
        object));
}

void ScreenObserver::end() {
    observations_.clear();
    life_ = std::make_shared<int>();
}

}  // namespace dayward

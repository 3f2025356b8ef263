// The one recursive monitor that guards the data of all key stores of an environment. It is never
// held while a notification is posted, since observers wait for other threads.
#pragma once

#include "platform/Environment.h"
#include "platform/Mutex.h"

namespace dayward {

class DataLayerLock {
public:
    explicit DataLayerLock(Environment&) {}

    static RecursiveMutex& of(Environment& environment) { return environment.shared<DataLayerLock>().mutex_; }

private:
    RecursiveMutex mutex_;
};

}  // namespace dayward

// Waits for several sources at once and dispatches those that are ready. One thread.
#pragma once

#include <vector>

#include "agent/EventSource.h"

namespace dayward {

class EventLoop {
public:
    /// Not owned; outlives the loop.
    void add(EventSource& source) { sources_.push_back(&source); }
    /// Returns after the first sources that became ready were dispatched.
    void waitOnce();

private:
    std::vector<EventSource*> sources_;
};

}  // namespace dayward

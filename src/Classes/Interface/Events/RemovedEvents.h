// Events that the user has just removed, kept for some seconds so that they can be put back.
//
// The removal is done and durable before anything is kept: a crash leaves the event removed. It is put
// back under its identifier as a new change, with its pictures and at its place in the order made by hand.
// Main thread only.
#pragma once

#include <cstddef>
#include <memory>
#include <optional>
#include <vector>

#include "platform/Date.h"

namespace dayward {

class HHEvent;

class RemovedEvents {
public:
    /// How long an event can be put back.
    static constexpr TimeInterval kTime{8};

    /// Removes the event from the store.
    void remove(const std::shared_ptr<HHEvent>& event);
    /// Puts the last removed one back into the store; null where none is kept, or where an event with
    /// its identifier is there again.
    std::shared_ptr<HHEvent> putBack();
    /// Forgets those whose time is over.
    void forgetOld();

private:
    struct Removed {
        std::shared_ptr<HHEvent> event;
        std::optional<std::size_t> place;  ///< in the order made by hand
        Date when;
    };

    std::vector<Removed> removed_;
};

}  // namespace dayward

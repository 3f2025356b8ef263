// Events that the user removes, kept for some seconds so that they can be put back.
//
// The removal itself does not wait: it is as durable as any, and a crash leaves the event removed. It is put
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

    /// To be called before the event is removed from the store.
    void keep(const HHEvent& event);
    [[nodiscard]] bool canPutBack() const { return last() != nullptr; }
    /// What putBack() would put back; null where there is none.
    [[nodiscard]] std::shared_ptr<const HHEvent> last() const;
    /// How long last() can still be put back; 0 where there is none.
    [[nodiscard]] TimeInterval timeLeft() const;
    /// Puts the last one back into the store that is kept and is not there again; null where there is none.
    std::shared_ptr<HHEvent> putBack();
    /// Forgets those whose time is over.
    void forgetOld();

private:
    struct Removed {
        std::shared_ptr<HHEvent> event;
        std::optional<std::size_t> place;  ///< in the order made by hand
        Date when;
    };

    /// Whether it may still be put back.
    static bool isKept(const Removed& removed);
    [[nodiscard]] const Removed* lastRemoved() const;

    std::vector<Removed> removed_;
};

}  // namespace dayward

// Finds out which notifications fired while the user was away, and adds their events to the list of
// MissedEventsHelper.
#pragma once

#include "alerts/MissedEventsHelper.h"

namespace dayward {

class MissedEventsService {
public:
    virtual ~MissedEventsService() = default;
    /// Compares what is scheduled with what saveState() kept. Any thread.
    virtual void find() = 0;
    /// Keeps what is scheduled now for the next find(). Any thread.
    virtual void saveState() = 0;
};

/// Nothing is scheduled, so nothing is missed.
class NoMissedEvents final : public MissedEventsService {
public:
    void find() override {}
    void saveState() override {}
};

/// The device's schedule and the defaults.
class ScheduleMissedEvents final : public MissedEventsService {
public:
    void find() override { MissedEventsHelper::find(); }
    void saveState() override { MissedEventsHelper::saveState(); }
};

}  // namespace dayward

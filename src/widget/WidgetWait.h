// Waiting until something that the widget shows may be another. One thread.
#pragma once

#include <iosfwd>
#include <optional>
#include <string>

#include "platform/Date.h"
#include "platform/Result.h"
#include "platform/linux/PathWatch.h"
#include "platform/linux/WallClockAlarm.h"

namespace dayward {

class WidgetWait {
public:
    enum class Wake {
        time,     ///< the moment has come
        changed,  ///< the copy, the zone or the clock was changed: everything is to be read anew
        end,      ///< nobody reads any more
    };

    virtual ~WidgetWait() = default;
    [[nodiscard]] virtual Date now() const = 0;
    /// Returns at the moment, or earlier where something else happened; without a moment only then.
    virtual Wake until(std::optional<Date> moment) = 0;
};

/// The device's clock, the file of the copy and the device's zone, with no wake-up in between: a timer on the wall
/// clock that tells when the clock is set, and watches of the directories.
class SystemWait final : public WidgetWait {
public:
    struct Options {
        std::string copy;        ///< the path of the file; it and its directory may be missing
        bool zone = true;        ///< the device's zone is followed
        TimeInterval shift = {};  ///< added to the device's clock
    };

    static Result<SystemWait> make(Options options);

    [[nodiscard]] Date now() const override;
    Wake until(std::optional<Date> moment) override;

    /// For loops of others: readable when wake() has something to tell.
    [[nodiscard]] int timer() const { return alarm_.descriptor(); }
    [[nodiscard]] int watches() const { return watch_.descriptor(); }
    void arm(std::optional<Date> moment);
    /// What has happened since it was last asked; nothing where it was nothing that matters.
    std::optional<Wake> wake();

private:
    SystemWait(TimeInterval shift, WallClockAlarm alarm, PathWatch watch)
        : shift_(shift), alarm_(std::move(alarm)), watch_(std::move(watch)) {}

    TimeInterval shift_;
    WallClockAlarm alarm_;
    PathWatch watch_;
};

/// A clock that is driven by lines: a local time sets it forward, over all moments in between, "changed" tells of a new
/// copy, and the end of the lines ends it. For tests.
class DrivenWait final : public WidgetWait {
public:
    DrivenWait(std::istream& lines, Date now) : lines_(lines), now_(now), target_(now) {}

    [[nodiscard]] Date now() const override { return now_; }
    Wake until(std::optional<Date> moment) override;

private:
    std::istream& lines_;
    Date now_;
    Date target_;  ///< where the clock is on its way to
};

}  // namespace dayward

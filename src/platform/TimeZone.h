// A time zone with the rules of the system's own zone database (TZif files, RFC 8536).
//
// Immutable and shared; copies are cheap; any thread. Offsets are right for every instant that the
// data and its footer rule describe, also beyond 2037.
#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "platform/Date.h"
#include "platform/Result.h"
#include "platform/ZoneRules.h"

namespace dayward {

class TimeZone {
public:
    /// The zone of that name ("Europe/Moscow"), read from the system's zone database once and kept.
    /// Fails with the domain "time zone" where there is no such zone or its file cannot be read.
    static Result<TimeZone> named(const std::string& name);
    static TimeZone utc();
    /// The zone that the device is in now: $TZ (a name, a file's path or a POSIX text), else
    /// /etc/localtime or /etc/timezone, else UTC. A file outside of the database bears its path as name.
    static TimeZone system();
    /// Every canonical and alias name of the system's zone database, sorted.
    static std::vector<std::string> knownNames();

    [[nodiscard]] const std::string& name() const;
    /// Seconds east of UTC at the instant.
    [[nodiscard]] std::int64_t secondsFromUTC(Date instant) const;
    /// Whether the instant lies in daylight saving time.
    [[nodiscard]] bool isDaylightSaving(Date instant) const;

    /// The instant of a local wall-clock time, given as the seconds since 2001-01-01 00:00:00 that
    /// the clock would show. A time that occurs twice is its first pass; a time that is skipped
    /// moves forward by the length of the gap.
    [[nodiscard]] Date instantOfLocal(double localSeconds) const;
    /// The reverse: what the clock shows at the instant, as seconds since 2001-01-01 00:00:00.
    [[nodiscard]] double localOfInstant(Date instant) const;

    /// The first change of offset strictly after the instant, if there is one within the next 400 years.
    [[nodiscard]] std::optional<Date> nextTransitionAfter(Date instant) const;

    /// The rules behind the answers above, in whole seconds since 1970.
    [[nodiscard]] const ZoneRules& rules() const { return rules_->rules; }

    /// Same name.
    bool operator==(const TimeZone& other) const { return name() == other.name(); }

private:
    struct Rules {
        std::string name;
        ZoneRules rules;
    };
    static Result<TimeZone> ofFile(const std::string& path);
    explicit TimeZone(std::shared_ptr<const Rules> rules) : rules_(std::move(rules)) {}
    std::shared_ptr<const Rules> rules_;
};

}  // namespace dayward

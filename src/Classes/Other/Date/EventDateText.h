// Dates of events in words: a localised text made from chosen parts of a date, "Tuesday, March 10".
//
// Texts are kept for each environment in a cache of bounded size, since every visible row is formatted
// again on each refresh; what is kept is dropped when the zone or the present year changes. Any thread.
#pragma once

#include <cstddef>
#include <cstdint>
#include <map>
#include <string>
#include <unordered_map>
#include <utility>

#include "platform/Date.h"
#include "platform/DateFormatter.h"
#include "platform/Mutex.h"
#include "platform/TimeZone.h"

namespace dayward {

class Environment;

/// Flags; combined with |.
enum EventDateTextParts : std::uint32_t {
    EventDateTextNone = 0,
    EventDateTextYear = 1,  ///< shown only where it is not the present year
    EventDateTextMonth = 2,
    EventDateTextWeekday = 4,
    EventDateTextDay = 8,
    EventDateTextTime = 16,  ///< shown only where hour and minute are not both 0
    EventDateTextAll = 31,
};

constexpr EventDateTextParts operator|(EventDateTextParts left, EventDateTextParts right) {
    return static_cast<EventDateTextParts>(static_cast<std::uint32_t>(left) | static_cast<std::uint32_t>(right));
}

class EventDateText {
public:
    /// At most so many texts are kept.
    static constexpr std::size_t kMaximumTexts = 4096;

    /// The text of the date in the current environment's zone and locale; empty where no part is left.
    static std::string textFromDate(Date date, EventDateTextParts parts);

    /// Use the class operation instead.
    explicit EventDateText(Environment& environment);

private:
    using Key = std::pair<double, std::uint32_t>;  ///< seconds since 1970, parts
    struct KeyHash {
        std::size_t operator()(const Key& key) const;
    };
    using Texts = std::unordered_map<Key, std::string, KeyHash>;

    std::string text(Date date, EventDateTextParts parts);
    void followZoneAndYear() DAYWARD_REQUIRES(mutex_);
    [[nodiscard]] const std::string* keptText(const Key& key) DAYWARD_REQUIRES(mutex_);
    const std::string& keepText(const Key& key, std::string text) DAYWARD_REQUIRES(mutex_);
    [[nodiscard]] std::string templateFor(Date date, EventDateTextParts parts) const DAYWARD_REQUIRES(mutex_);
    [[nodiscard]] const DateFormatter& formatterFor(const std::string& dateTemplate) DAYWARD_REQUIRES(mutex_);

    Environment& environment_;
    Mutex mutex_;
    TimeZone zone_ DAYWARD_GUARDED_BY(mutex_);
    std::int64_t presentYear_ DAYWARD_GUARDED_BY(mutex_) = 0;
    std::map<std::string, DateFormatter> formatters_ DAYWARD_GUARDED_BY(mutex_);  ///< by template; 32 at most
    /// Two generations of half the size: when the newer is full it becomes the older, whose texts go
    /// unless they were asked for meanwhile.
    Texts newerTexts_ DAYWARD_GUARDED_BY(mutex_);
    Texts olderTexts_ DAYWARD_GUARDED_BY(mutex_);
};

}  // namespace dayward

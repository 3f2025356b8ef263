// What both event histories do with a name's ascending entries. Private to them.
#pragma once

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <optional>
#include <utility>
#include <vector>

#include "platform/Date.h"

namespace dayward::eventHistory {

inline constexpr TimeInterval kDay{86400};

inline bool isUsable(Date date) { return !std::isnan(date.secondsSinceReference()); }

/// Inserts after every entry that is not later, then drops the oldest beyond the limit.
template <class Entry, class DateOf>
void add(std::vector<Entry>& entries, Entry entry, std::int64_t limit, DateOf dateOf) {
    const Date date = dateOf(entry);
    if (!isUsable(date)) return;
    const auto isLater = [&](Date value, const Entry& other) { return value < dateOf(other); };
    entries.insert(std::upper_bound(entries.begin(), entries.end(), date, isLater), std::move(entry));
    const auto kept = static_cast<std::uint64_t>(std::max<std::int64_t>(limit, 0));
    if (entries.size() <= kept) return;
    entries.erase(entries.begin(), entries.end() - static_cast<std::ptrdiff_t>(kept));
}

/// The entries between the bounds, both inclusive, as a half-open range of iterators.
template <class Entry, class DateOf>
auto range(const std::vector<Entry>& entries, std::optional<Date> from, std::optional<Date> to, DateOf dateOf) {
    auto first = entries.begin();
    auto last = entries.end();
    if (from) {
        first =
            std::lower_bound(first, last, *from, [&](const Entry& entry, Date date) { return dateOf(entry) < date; });
    }
    if (to) {
        last = std::upper_bound(first, last, *to, [&](Date date, const Entry& entry) { return date < dateOf(entry); });
    }
    return std::pair(first, last);
}

/// Brings entries that were read into order.
template <class Entry, class DateOf>
void sort(std::vector<Entry>& entries, DateOf dateOf) {
    std::erase_if(entries, [&](const Entry& entry) { return !isUsable(dateOf(entry)); });
    std::stable_sort(entries.begin(), entries.end(),
                     [&](const Entry& a, const Entry& b) { return dateOf(a) < dateOf(b); });
}

}  // namespace dayward::eventHistory

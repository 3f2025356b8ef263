#include "Classes/Interface/List/EventDateArrangement.h"

#include <algorithm>
#include <cmath>
#include <unordered_map>
#include <unordered_set>

#include "Classes/Interface/List/EventByDateTableManager.h"
#include "Submodules/CorpLibrary2/Foundation/RadixSort.h"
#include "Submodules/CorpLibrary2/Foundation/StableMergeSort.h"
#include "alerts/MissedEventsHelper.h"
#include "platform/Collation.h"
#include "platform/Environment.h"

namespace dayward {

namespace {

struct DatedRow {
    std::uint64_t key;  ///< the order of EventDateRank as a number
    Date date;
    std::uint32_t row;
    bool hasDate, isRunning;
};

struct NamedRow {
    PlainStringKey name;
    std::uint32_t row;
};

struct Section {
    EventSection object;
    std::vector<DatedRow> rows;
};

/// Events lie anywhere in memory: so many rows ahead they are fetched before they are read.
constexpr std::size_t kLookahead = 16;
/// Up to here every whole second has a number of its own.
constexpr double kFarthest = 0x1p52;

/// Running events (their seconds may have either sign), then those ahead, then past ones.
std::uint64_t keyOf(const EventDateRank& rank) {
    constexpr auto kSpan = static_cast<std::int64_t>(kFarthest);
    const auto group = static_cast<std::int64_t>(rank.group);
    return static_cast<std::uint64_t>(kSpan * (2 * group + 1) + static_cast<std::int64_t>(rank.seconds));
}

/// Nothing where one is too far away.
std::optional<std::vector<DatedRow>> datedRows(const std::vector<EventRow>& events, Date now) {
    std::vector<DatedRow> rows;
    rows.reserve(events.size());
    for (std::size_t row = 0; row < events.size(); ++row) {
        if (row + kLookahead < events.size()) events[row + kLookahead]->prefetchDates();
        const HHEvent::DatesCalculation dates = events[row]->datesAt(now);
        const EventDateRank rank(dates, now);
        if (!(std::abs(rank.seconds) < kFarthest)) return std::nullopt;
        const std::optional<Date> date = dates.occurrence();
        rows.push_back({keyOf(rank), date.value_or(Date()), static_cast<std::uint32_t>(row), date.has_value(),
                        dates.isRunning(now)});
    }
    return rows;
}

/// The sections as they are met, their rows in the order of `rows`.
std::vector<Section> sectionsOf(const std::vector<DatedRow>& rows, const std::vector<EventRow>& events,
                                const HHDTDSContainer::Moment& moment) {
    const std::vector<std::string> missed = MissedEventsHelper::missedEvents();
    const std::unordered_set<std::string_view> missedKeys(missed.begin(), missed.end());
    std::vector<Section> sections;
    std::unordered_map<EventSection, std::size_t, EventTableTraits::SectionHash> indexes;
    std::size_t last = 0;  // rows that follow each other in time mostly share their section
    for (const DatedRow& row : rows) {
        const bool isMissed = !missedKeys.empty() && missedKeys.contains(events[row.row]->identifier());
        const EventSection object = HHDTDSContainer::sectionOf(row.hasDate ? std::optional(row.date) : std::nullopt,
                                                               row.isRunning, isMissed, moment);
        if (sections.empty() || sections[last].object != object) {
            const auto [found, isNew] = indexes.try_emplace(object, sections.size());
            if (isNew) sections.push_back({object, {}});
            last = found->second;
        }
        sections[last].rows.push_back(row);
    }
    stableMergeSort(sections, [](const Section& a, const Section& b) {
        return HHDTDSContainer::isOrderedBefore(*a.object, *b.object);
    });
    return sections;
}

/// Calls `visit(first, end)` for each run of rows of one second.
template <class Visit>
void forEachTie(const std::vector<DatedRow>& rows, Visit visit) {
    for (std::size_t first = 0; first < rows.size();) {
        std::size_t end = first + 1;
        while (end < rows.size() && rows[end].key == rows[first].key) ++end;
        if (end - first > 1) visit(first, end);
        first = end;
    }
}

/// Brings rows of one second into the order of their names.
void sortEqualsByName(std::vector<DatedRow>& rows, const std::vector<EventRow>& events) {
    std::vector<NamedRow> named;
    forEachTie(rows, [&](std::size_t first, std::size_t end) {
        named.clear();
        for (std::size_t index = first; index < end; ++index) {
            if (index + kLookahead < rows.size()) __builtin_prefetch(&events[rows[index + kLookahead].row]->name());
            const auto& name = events[rows[index].row]->name();
            named.push_back({PlainStringKey(name ? std::string_view(*name) : std::string_view()), rows[index].row});
        }
        std::ranges::stable_sort(named, [](const NamedRow& a, const NamedRow& b) { return a.name.order(b.name) < 0; });
        for (std::size_t index = first; index < end; ++index) rows[index].row = named[index - first].row;
    });
}

}  // namespace

std::optional<std::vector<std::pair<EventSection, std::vector<EventRow>>>> arrangedByDate(
    std::vector<EventRow>& events) {
    const Environment& environment = Environment::current();
    const auto calendar = environment.calendar();
    const HHDTDSContainer::Moment moment(environment.now(), *calendar);
    auto dated = datedRows(events, moment.now);
    if (!dated) return std::nullopt;
    sortByKey(*dated);
    std::vector<std::pair<EventSection, std::vector<EventRow>>> result;
    for (Section& section : sectionsOf(*dated, events, moment)) {
        sortEqualsByName(section.rows, events);
        auto& rows = result.emplace_back(section.object, std::vector<EventRow>()).second;
        rows.reserve(section.rows.size());
        for (const DatedRow& row : section.rows) rows.push_back(std::move(events[row.row]));
    }
    return result;
}

}  // namespace dayward

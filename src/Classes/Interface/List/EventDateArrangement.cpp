#include "Classes/Interface/List/EventDateArrangement.h"

#include <algorithm>
#include <atomic>
#include <cmath>
#include <unordered_map>
#include <unordered_set>

#include "Classes/Interface/List/EventByDateTableManager.h"
#include "Submodules/CorpLibrary2/Foundation/RadixSort.h"
#include "Submodules/CorpLibrary2/Foundation/StableMergeSort.h"
#include "alerts/MissedEventsHelper.h"
#include "platform/Collation.h"
#include "platform/Environment.h"
#include "platform/Parallel.h"

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
/// Dates are asked for so many rows at a time, by more than one thread from some thousands of rows on.
constexpr std::size_t kRowsAtATime = 128, kLeastBlocks = 16;
/// So many seconds with more than one row are worth a thread.
constexpr std::size_t kLeastTies = 512;
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
    std::vector<DatedRow> rows(events.size());
    std::atomic<bool> areInReach = true;
    inParallel((events.size() + kRowsAtATime - 1) / kRowsAtATime, kLeastBlocks, [&](std::size_t block) {
        const std::size_t end = std::min((block + 1) * kRowsAtATime, events.size());
        for (std::size_t row = block * kRowsAtATime; row < end; ++row) {
            if (row + kLookahead < end) events[row + kLookahead]->prefetchDates();
            const HHEvent::DatesCalculation dates = events[row]->datesAt(now);
            const EventDateRank rank(dates, now);
            if (!(std::abs(rank.seconds) < kFarthest)) {
                areInReach = false;
                continue;
            }
            const std::optional<Date> date = dates.occurrence();
            rows[row] = {keyOf(rank), date.value_or(Date()), static_cast<std::uint32_t>(row), date.has_value(),
                         dates.isRunning(now)};
        }
    });
    if (!areInReach) return std::nullopt;
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

/// Rows of one second.
struct Tie {
    std::vector<DatedRow>* rows;
    std::size_t first, end;
};

void addTies(std::vector<Tie>& ties, std::vector<DatedRow>& rows) {
    for (std::size_t first = 0; first < rows.size();) {
        std::size_t end = first + 1;
        while (end < rows.size() && rows[end].key == rows[first].key) ++end;
        if (end - first > 1) ties.push_back({&rows, first, end});
        first = end;
    }
}

/// Brings rows of one second into the order of their names.
void sortByName(const Tie& tie, const std::vector<EventRow>& events) {
    thread_local std::vector<NamedRow> named;
    named.clear();
    auto& rows = *tie.rows;
    for (std::size_t index = tie.first; index < tie.end; ++index) {
        if (index + kLookahead < tie.end) __builtin_prefetch(&events[rows[index + kLookahead].row]->name());
        const auto& name = events[rows[index].row]->name();
        named.push_back({PlainStringKey(name ? std::string_view(*name) : std::string_view()), rows[index].row});
    }
    std::ranges::stable_sort(named, [](const NamedRow& a, const NamedRow& b) { return a.name.order(b.name) < 0; });
    for (std::size_t index = tie.first; index < tie.end; ++index) rows[index].row = named[index - tie.first].row;
}

void sortEqualsByName(std::vector<Section>& sections, const std::vector<EventRow>& events) {
    std::vector<Tie> ties;
    for (Section& section : sections) addTies(ties, section.rows);
    inParallel(ties.size(), kLeastTies, [&](std::size_t index) { sortByName(ties[index], events); });
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
    std::vector<Section> sections = sectionsOf(*dated, events, moment);
    sortEqualsByName(sections, events);
    std::vector<std::pair<EventSection, std::vector<EventRow>>> result;
    for (Section& section : sections) {
        auto& rows = result.emplace_back(section.object, std::vector<EventRow>()).second;
        rows.reserve(section.rows.size());
        for (const DatedRow& row : section.rows) rows.push_back(std::move(events[row.row]));
    }
    return result;
}

}  // namespace dayward

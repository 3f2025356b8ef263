// The list by date over 100,000 events: from the events to sections and rows, with the dates known and with
// nothing known, and the change of single rows. Half of the events are yearly days, the others stand alone.
#include <algorithm>
#include <ctime>
#include <random>

#include "Classes/Interface/List/EventByDateTableManager.h"
#include "Classes/Interface/List/EventTableViewCell.h"
#include "platform/DispatchQueue.h"
#include "support/Bench.h"
#include "support/StoreHome.h"

namespace {

using namespace dayward;

constexpr int kMany = 100000;
constexpr int kFew = 1000;
constexpr std::size_t kVisible = 20;

std::shared_ptr<HHEvent> randomEvent(std::mt19937& random) {
    const auto below = [&](int end) { return static_cast<int>(random() % static_cast<unsigned>(end)); };
    const auto word = [&] {
        std::string text(1, static_cast<char>('A' + below(26)));
        for (int length = 3 + below(6); length > 0; --length) text += static_cast<char>('a' + below(26));
        return text;
    };
    auto event = std::make_shared<HHEvent>();
    event->setName(word() + " " + word());
    const bool isYearly = below(2) == 0;
    const double days = isYearly ? -60 * 365.0 : -2 * 365.0;
    event->setDate(Environment::current().now() + TimeInterval((days + below(12 * 365)) * 86400));
    event->setTimes({isYearly ? 0 : 5 * below(288)});
    if (isYearly) event->setRrule("FREQ=YEARLY;INTERVAL=1");
    return event;
}

/// An environment in scope, and events in random order whose dates are known.
class Events {
public:
    explicit Events(int count) {
        std::mt19937 random(5);
        for (int made = 0; made < count; ++made) rows_.push_back(randomEvent(random));
        for (const auto& event : rows_) (void)event->nextDate();
    }
    [[nodiscard]] const std::vector<EventRow>& rows() const { return rows_; }

    static const Events& of(int count) {
        static const std::unique_ptr<Environment> environment = bench::linuxEnvironment(bench::freshPath());
        static const EnvironmentScope scope(environment.get());
        static const Events few(kFew), many(kMany);
        return count == kFew ? few : many;
    }

private:
    std::vector<EventRow> rows_;
};

void reload(benchmark::State& state, const std::function<void(const EventRow&)>& prepare) {
    const std::vector<EventRow>& rows = Events::of(kMany).rows();
    for (auto _ : state) {
        state.PauseTiming();
        auto events = rows;
        for (const EventRow& event : events) prepare(event);
        auto manager = std::make_unique<EventByDateTableManager>(nullptr);
        state.ResumeTiming();
        manager->setObjects(std::move(events));
        state.PauseTiming();
        manager.reset();
        state.ResumeTiming();
    }
}

void sortRecords(benchmark::State& state) {
    std::vector<std::pair<double, std::string>> records;
    for (const EventRow& event : Events::of(kMany).rows())
        records.emplace_back(event->nextDate()->secondsSinceReference(), event->name().value());
    for (auto _ : state) {
        state.PauseTiming();
        auto sorted = records;
        state.ResumeTiming();
        std::sort(sorted.begin(), sorted.end());
        benchmark::DoNotOptimize(sorted.data());
    }
}

/// Takes rows of a list in turn and hands them to `change`.
void changeRows(benchmark::State& state, int count, void (*change)(EventTableManager&, const EventRow&)) {
    const std::vector<EventRow>& rows = Events::of(count).rows();
    EventByDateTableManager manager(nullptr);
    manager.setObjects(rows);
    change(manager, rows.back());
    std::size_t at = 0;
    for (auto _ : state) {
        change(manager, rows[at]);
        at = (at + 7919) % rows.size();
    }
}

void updateRow(EventTableManager& manager, const EventRow& row) { manager.updateObject(row); }

void takeRowOutAndIn(EventTableManager& manager, const EventRow& row) {
    manager.removeObject(row);
    manager.appendObject(row);
}

void sortInOrder(benchmark::State& state) {
    EventByDateTableManager manager(nullptr);
    manager.setObjects(Events::of(kMany).rows());
    for (auto _ : state) manager.sortData();
}

/// What a second of a visible list costs: each row is written anew.
void writeRows(benchmark::State& state) {
    const std::vector<EventRow>& rows = Events::of(kFew).rows();
    EventByDateTableManager manager(nullptr);
    std::vector<std::shared_ptr<EventTableViewCell>> cells(kVisible);
    for (auto& cell : cells) cell = std::make_shared<EventTableViewCell>();
    const auto configure = [&] {
        for (std::size_t row = 0; row < kVisible; ++row) manager.configureCell(cells[row], rows[row]);
    };
    configure();
    Environment::current().queues().waitUntilIdle();  // the icons came late
    for (auto _ : state) configure();
}

/// The C library's two lines of such rows.
void printRows(benchmark::State& state) {
    const std::vector<EventRow>& rows = Events::of(kFew).rows();
    for (auto _ : state) {
        const Date now = Environment::current().now();
        for (std::size_t row = 0; row < kVisible; ++row) {
            const Date next = rows[row]->nextDate().value();
            const auto instant = static_cast<std::time_t>(next.secondsSince1970());
            std::tm fields{};
            char line[2][64];
            (void)std::strftime(line[0], sizeof line[0], "%A, %B %e, %Y, %H:%M", localtime_r(&instant, &fields));
            (void)std::snprintf(line[1], sizeof line[1], "%.0f Days", (next - now).seconds() / 86400);
            benchmark::DoNotOptimize(line);
        }
    }
}

}  // namespace

DAYWARD_BENCH_WALL(sort_rows, ours, 1) {
    reload(state, [](const EventRow&) {});
}
DAYWARD_BENCH_WALL(sort_rows, std_sort, 1) { sortRecords(state); }

DAYWARD_BENCH_WALL(reload_rows, ours, 1) {
    reload(state, [](const EventRow& event) { event->moduleEventDateRefresh(); });
}
DAYWARD_BENCH_WALL(reload_rows, std_sort, 1) { sortRecords(state); }

DAYWARD_BENCH_WALL(sort_again, ours, 1) { sortInOrder(state); }
DAYWARD_BENCH_WALL(sort_again, std_sort, 1) { sortRecords(state); }

DAYWARD_BENCH(update_row, ours) { changeRows(state, kMany, updateRow); }
DAYWARD_BENCH(update_row, few) { changeRows(state, kFew, updateRow); }

DAYWARD_BENCH(replace_row, ours) { changeRows(state, kMany, takeRowOutAndIn); }
DAYWARD_BENCH(replace_row, few) { changeRows(state, kFew, takeRowOutAndIn); }

DAYWARD_BENCH(tick_20, ours) { writeRows(state); }
DAYWARD_BENCH(tick_20, printf) { printRows(state); }

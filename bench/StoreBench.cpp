// The event store: opening it with its files in the page cache, saving a batch durably, and the memory
// that its events take beyond their texts.
#include <malloc.h>
#include <sys/stat.h>

#include "Classes/Category/NamedEventIconPicture.h"
#include "Classes/Event/EventLocalStore.h"
#include "Classes/Event/HHEvent.h"
#include "support/Bench.h"
#include "support/PlistEvent.h"
#include "support/StoreHome.h"
#include "support/TypicalEvent.h"

namespace {

using namespace dayward;

constexpr int kMany = 100000;
constexpr int kSaved = 1000;

void openStore(benchmark::State& state, int count) {
    const auto environment = bench::linuxEnvironment(bench::homeOf(count));
    const EnvironmentScope scope(environment.get());
    for (auto _ : state) {
        auto store = std::make_unique<EventLocalStore>(*environment);
        state.PauseTiming();
        if (store->itemsCount() != static_cast<std::size_t>(count)) state.SkipWithError("events are missing");
        store.reset();
        state.ResumeTiming();
    }
}

void readByLibplist(benchmark::State& state, int count) {
    const std::string& documents = bench::documentsOf(count);
    for (auto _ : state) {
        bench::readPackages(documents,
                            [](const Data& bytes) { benchmark::DoNotOptimize(bench::plistEventFrom(bytes)); });
    }
}

void readFiles(benchmark::State& state, int count) {
    const std::string& documents = bench::documentsOf(count);
    for (auto _ : state)
        bench::readPackages(documents, [](const Data& bytes) { benchmark::DoNotOptimize(bytes.data()); });
}

void save(benchmark::State& state, void (*work)(const std::string&, const std::vector<Data>&)) {
    std::vector<Data> archives;
    for (int number = 0; number < kSaved; ++number) archives.push_back(bench::typicalArchive(number));
    const std::string directory = bench::freshPath();
    mkdir(directory.c_str(), 0700);
    for (auto _ : state) work(directory, archives);
}

std::size_t heapInUse() {
    const auto info = mallinfo2();
    return info.uordblks + info.hblkhd;
}

std::size_t textBytes(const HHEvent& event) {
    const auto length = [](const std::optional<std::string>& text) { return text ? text->size() : 0; };
    const auto icon = std::dynamic_pointer_cast<NamedEventIconPicture>(event.icon());
    return event.identifier().size() + length(event.name()) + length(event.categoryKey()) + length(event.rrule()) +
           length(event.note()) + length(event.alerts().soundName) + length(event.appearance().fontName) +
           (icon ? icon->named().size() : 0);
}

}  // namespace

DAYWARD_BENCH_WALL(open_10000, ours, 1) { openStore(state, 10000); }
DAYWARD_BENCH_WALL(open_10000, libplist, 1) { readByLibplist(state, 10000); }
DAYWARD_BENCH_WALL(open_10000, files, 1) { readFiles(state, 10000); }
DAYWARD_BENCH_WALL(open_100000, ours, 1) { openStore(state, kMany); }
DAYWARD_BENCH_WALL(open_100000, libplist, 1) { readByLibplist(state, kMany); }
DAYWARD_BENCH_WALL(open_100000, files, 1) { readFiles(state, kMany); }

DAYWARD_BENCH_WALL(save_1000, ours, 1) {
    const auto environment = bench::linuxEnvironment(bench::freshPath());
    const EnvironmentScope scope(environment.get());
    EventLocalStore store(*environment);
    std::vector<std::shared_ptr<HHEvent>> events;
    for (int number = 0; number < kSaved; ++number)
        events.push_back(std::make_shared<HHEvent>(bench::typicalEvent(number)));
    for (auto _ : state) {
        store.updateEvents(events);
        if (!store.flush()) state.SkipWithError("saving failed");
    }
}

DAYWARD_BENCH_WALL(save_1000, sync_each, 1) { save(state, bench::saveEach); }
DAYWARD_BENCH_WALL(save_1000, one_sync, 1) { save(state, bench::saveWithOneSync); }

DAYWARD_BENCH_WALL(memory_100000, ours, 1) {
    const auto environment = bench::linuxEnvironment(bench::homeOf(kMany));
    const EnvironmentScope scope(environment.get());
    const std::size_t before = heapInUse();
    for (auto _ : state) {
        EventLocalStore store(*environment);
        state.PauseTiming();
        std::size_t taken = heapInUse() - before;
        for (const auto& event : store.allEvents()) taken -= textBytes(*event);
        state.counters["bytes"] = static_cast<double>(taken) / kMany;
        state.ResumeTiming();
    }
}

DAYWARD_BENCH_WALL(memory_100000, limit, 1) {
    for (auto _ : state) state.counters["bytes"] = 1024;
}

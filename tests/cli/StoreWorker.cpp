// One process of test_two_processes.py: adds, edits and removes events on a home that another one uses too.
//
//   store_worker HOME NAME SEED FIRST ADDS EDITS REMOVALS
//
// Standard output tells each step with the time of the monotonic clock in nanoseconds:
//   begin TIME add|edit|remove KEY=VALUE ...    before memory changes
//   end TIME ok | end TIME failed REASON        once everything is in the files
//   left-out PATH: REASON                       what a start could not read
// When all is done: "done", then, once standard input ends, "event KEY=VALUE whole|mixed" for each event.
#include <unistd.h>

#include <algorithm>
#include <chrono>
#include <iostream>
#include <random>

#include "Classes/App/ArchiveRegistration.h"
#include "Classes/Category/ImageEventIconPicture.h"
#include "Classes/Event/EventLocalStore.h"
#include "Classes/Event/HHEvent.h"
#include "platform/FatalError.h"
#include "platform/linux/LinuxEnvironment.h"

namespace dayward {
namespace {

constexpr std::size_t kLargestBatch = 16;

/// In one write, so that a line is there whole or not at all.
void tell(const std::string& line) {
    const std::string whole = line + "\n";
    if (::write(STDOUT_FILENO, whole.data(), whole.size()) != static_cast<ssize_t>(whole.size())) ::_exit(1);
}

std::string now() { return std::to_string(std::chrono::steady_clock::now().time_since_epoch().count()); }

/// Follows from the name, so that a mix of two states shows.
std::string noteOf(const std::string& name) {
    std::string note;
    for (std::size_t left = std::hash<std::string>()(name) % 300; left > 0; --left) note += name + " ";
    return note;
}

class Worker {
public:
    Worker(EventLocalStore& store, std::string name, unsigned seed, std::size_t first)
        : store_(store), name_(std::move(name)), random_(seed), next_(first) {}

    void work(std::size_t adds, std::size_t edits, std::size_t removals) {
        std::size_t left[] = {adds, edits, removals};
        while (left[0] + left[1] + left[2] > 0) {
            const std::size_t kind = random_() % 3;
            // There must be something to edit and remove.
            if (left[kind] == 0 || (kind > 0 && store_.itemsCount() < kLargestBatch && left[0] > 0)) continue;
            const std::size_t size = std::min<std::size_t>(left[kind], 1 + random_() % kLargestBatch);
            left[kind] -= kind == 0 ? add(size) : change(size, kind == 1);
            if (kind > 0 && store_.itemsCount() == 0) left[kind] = 0;
        }
    }

private:
    std::size_t add(std::size_t size) {
        Events events;
        for (std::size_t i = 0; i < size; ++i) {
            const std::string key = name_ + "-" + std::to_string(next_);
            events.push_back(named(std::make_shared<HHEvent>(key)));
        }
        return perform("add", events, &EventLocalStore::updateEvents);
    }

    /// Events of both processes, each at most once.
    std::size_t change(std::size_t size, bool isEdit) {
        Events events = store_.allEvents();
        std::shuffle(events.begin(), events.end(), random_);
        events.resize(std::min(size, events.size()));
        if (!isEdit) return perform("remove", events, &EventLocalStore::removeEvents);
        for (auto& event : events) event = named(std::make_shared<HHEvent>(*event));
        return perform("edit", events, &EventLocalStore::updateEvents);
    }

    using Events = std::vector<std::shared_ptr<HHEvent>>;

    std::shared_ptr<HHEvent> named(std::shared_ptr<HHEvent> event) {
        const std::string name = name_ + "." + std::to_string(next_++);
        event->setName(name);
        event->setNote(noteOf(name));
        if (random_() % 4 == 0) {
            const auto image = std::make_shared<const Image>(1, 1, Data{static_cast<std::uint8_t>(next_), 0, 0, 255});
            event->setIcon(std::make_shared<ImageEventIconPicture>(image));
        }
        return event;
    }

    std::size_t perform(const std::string& kind, const Events& events, void (EventLocalStore::*apply)(const Events&)) {
        if (events.empty()) return 0;
        std::string line = "begin " + now() + " " + kind;
        for (const auto& event : events) line += " " + event->identifier() + "=" + event->name().value_or("");
        tell(line);
        (store_.*apply)(events);
        const auto written = store_.flush();
        tell("end " + now() + (written ? " ok" : " failed " + written.error().description()));
        return events.size();
    }

    EventLocalStore& store_;
    const std::string name_;
    std::mt19937 random_;
    std::size_t next_;
};

void run(const std::vector<std::string>& arguments) {
    LinuxOptions options;
    options.home = arguments[0];
    options.resources = DAYWARD_TEST_RESOURCES;
    options.logName = arguments[1];
    options.archiveClasses = allArchiveClasses();
    auto services = makeLinuxServices(options);
    if (!services) fatalError(services.error().description());
    Environment environment(*std::move(services));
    const EnvironmentScope scope(&environment);
    EventLocalStore& store = EventLocalStore::shared();
    for (const auto& file : store.leftOut()) tell("left-out " + file.path + ": " + file.reason);
    const auto number = [&](std::size_t i) { return std::stoul(arguments[i]); };
    Worker(store, arguments[1], number(2), number(3)).work(number(4), number(5), number(6));
    tell("done");
    std::string ignored;
    while (std::getline(std::cin, ignored)) {
    }
    store.refreshFromDisk();
    for (const auto& event : store.allEvents()) {
        const std::string name = event->name().value_or("");
        const bool isWhole = event->note().value_or("") == noteOf(name);
        tell("event " + event->identifier() + "=" + name + (isWhole ? " whole" : " mixed"));
    }
}

}  // namespace
}  // namespace dayward

int main(int argc, char** argv) {
    dayward::run({argv + 1, argv + argc});
    return 0;
}

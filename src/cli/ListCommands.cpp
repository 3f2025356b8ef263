// dayward list|watch
#include <CLI/CLI.hpp>
#include <map>
#include <memory>

#include "Classes/Category/CategoryLocalStore.h"
#include "Classes/Event/EventJSONValue.h"
#include "Classes/Event/EventLocalStore.h"
#include "cli/Command.h"
#include "cli/ListSections.h"
#include "cli/ListText.h"
#include "cli/Output.h"
#include "cli/Terminal.h"
#include "platform/DateFormatter.h"
#include "platform/DispatchQueue.h"
#include "platform/Environment.h"
#include "platform/Strings.h"

namespace dayward {

namespace {

template <class T>
JSON orNull(const std::optional<T>& value) {
    return value ? JSON(*value) : JSON(nullptr);
}

void printSectionJSON(const ListSection& section, int depth) {
    const JSON fields = {{"title", section.title},
                         {"type", orNull(section.type)},
                         {"year", orNull(section.year)},
                         {"month", orNull(section.month)}};
    printJSONObject(fields, "events", depth, [&] {
        printJSONArray(section.events.size(), depth + 1, [&](std::size_t index) {
            printJSONValue(eventJSONValue(*section.events[index], {.computedFields = true}), depth + 2);
        });
    });
}

void printSectionsJSON(const std::vector<ListSection>& sections) {
    printJSONObject(JSON::object(), "sections", 0, [&] {
        printJSONArray(sections.size(), 1, [&](std::size_t index) { printSectionJSON(sections[index], 2); });
    });
    printLine("");
}

Result<> printList(const ListRequest& request, bool identifiers, bool json) {
    const std::vector<ListSection> sections = listSections(request);
    if (json) {
        printSectionsJSON(sections);
    } else if (sections.empty()) {
        printLine(localized("No events") + (request.search ? "" : ": dayward add NAME --date DATE"));
    } else {
        std::string text = listText(sections, {.width = terminalWidth(), .colour = terminalHasColour(),
                                               .identifiers = identifiers});
        while (text.ends_with("\n\n")) text.pop_back();
        printLine(std::string_view(text).substr(0, text.size() - 1));
    }
    return {};
}

/// The seconds until the clock's next whole second, as milliseconds, so that the texts change when the
/// clock does.
int millisecondsToNextSecond(Date now) {
    const double seconds = now.secondsSinceReference();
    return std::max(1, static_cast<int>((std::floor(seconds) + 1 - seconds) * 1000));
}

std::string watchFrame(Environment& environment) {
    const Date now = environment.now();
    const auto clock = DateFormatter::withStyles(DateFormatter::Style::full, DateFormatter::Style::medium,
                                                 environment.locale(), environment.timeZone());
    std::string frame = fitted(clock.stringFromDate(now), terminalWidth()) + "\n\n";
    frame += listText(listSections({}), {.width = terminalWidth(), .colour = terminalHasColour(),
                                         .maximumLines = std::max(3, terminalHeight() - 3)});
    return frame;
}

}  // namespace

Result<> watchList(Environment& environment, const GlobalOptions&) {
    LiveScreen screen;
    do {
        CategoryLocalStore::shared().refreshFromDisk();
        screen.show(watchFrame(environment));
    } while (screen.waitForEnd(millisecondsToNextSecond(environment.now())));
    return {};
}

void addListCommand(CLI::App& app, ChosenCommand& chosen) {
    static const std::map<std::string, std::int64_t> kSortTypes{{"date", 0}, {"name", 1}, {"custom", 2}};
    const auto request = std::make_shared<ListRequest>();
    const auto sort = std::make_shared<std::optional<std::string>>();
    const auto identifiers = std::make_shared<bool>(false);
    CLI::App* command = app.add_subcommand("list", "The list as the application shows it");
    command->add_option("--sort", *sort, "date, name or custom; the setting decides where it is absent")
        ->check(CLI::IsMember(kSortTypes));
    command->add_option("--search", request->search, "Only events with this text in name or note");
    command->add_flag("--ids", *identifiers, "Print the events' identifiers too");
    command->callback([=, &chosen] {
        if (*sort) request->sortType = kSortTypes.at(**sort);
        chosen.action = [=](Environment&, const GlobalOptions& options) {
            return printList(*request, *identifiers, options.json);
        };
    });
}

void addWatchCommand(CLI::App& app, ChosenCommand& chosen) {
    app.add_subcommand("watch", "The live list, redrawn each second, until q")->callback([&chosen] {
        chosen.action = watchList;
    });
}

}  // namespace dayward

// dayward badge [TYPE [ID]]
#include <CLI/CLI.hpp>
#include <algorithm>
#include <array>
#include <memory>

#include "Classes/Event/EventLocalStore.h"
#include "Classes/Event/HHEvent.h"
#include "alerts/AppBadge.h"
#include "cli/Arguments.h"
#include "cli/Command.h"
#include "cli/EventLookup.h"
#include "cli/Output.h"
#include "cli/RefreshSchedule.h"
#include "cli/Terminal.h"
#include "intervals/ISODate.h"
#include "platform/Environment.h"
#include "platform/PercentFormat.h"
#include "platform/Strings.h"

namespace dayward {

namespace {

/// In the order of the stored numbers.
constexpr std::array<std::string_view, AppBadge::kTypes.size()> kWords{"none", "missed", "next", "before", "after"};

struct BadgeOptions {
    std::optional<std::string> type;
    std::optional<std::string> event;
};

Result<BadgeType> parseType(const std::string& text) {
    const auto found = std::ranges::find(kWords, text);
    if (found != kWords.end()) return AppBadge::kTypes[static_cast<std::size_t>(found - kWords.begin())];
    const auto number = parseInteger(text, 0, std::ssize(kWords) - 1);
    if (!number) return failure("'" + text + "' is not one of none, missed, next, before and after");
    return static_cast<BadgeType>(*number);
}

Result<> choose(const BadgeOptions& options) {
    const BadgeType type = TRY(parseType(*options.type));
    if (options.event && !AppBadge::needsEvent(type)) return failure("'" + *options.type + "' takes no event");
    std::optional<std::string> key = AppBadge::eventKey();
    if (options.event) key = TRY(eventNamed(*options.event))->identifier();
    if (AppBadge::needsEvent(type) && !EventLocalStore::shared().eventByIdentifier(key)) {
        return failure("'" + *options.type + "' needs an event");
    }
    AppBadge::setType(type);
    if (options.event) AppBadge::setEventKey(key);
    return {};
}

void printBadgeJSON(std::optional<std::int64_t> number, const std::vector<LocalNotification>& silent) {
    const auto key = AppBadge::eventKey();
    JSON changes = JSON::array();
    for (const LocalNotification& one : silent) {
        changes.push_back({{"date", isoText(*one.fireDate)},
                           {"dateSeconds", one.fireDate->secondsSinceReference()},
                           {"number", *one.applicationIconBadgeNumber}});
    }
    printJSON({{"type", static_cast<std::int64_t>(AppBadge::type())},
               {"name", AppBadge::displayName(AppBadge::type())},
               {"eventKey", key ? JSON(*key) : JSON(nullptr)},
               {"number", number ? JSON(*number) : JSON(nullptr)},
               {"changes", std::move(changes)}});
}

void printBadgeText(std::optional<std::int64_t> number) {
    printLine(AppBadge::displayName(AppBadge::type()));
    const auto event = EventLocalStore::shared().eventByIdentifier(AppBadge::eventKey());
    if (event && AppBadge::needsEvent(AppBadge::type())) {
        printLine(printable(formatText(localized("Event: %@"), {event->name().value_or("")})));
    }
    if (number) printLine(formatText(localized("Number: %@"), {std::to_string(*number)}));
}

Result<> run(Environment& environment, const BadgeOptions& options, bool json) {
    const auto events = EventLocalStore::shared().allEvents();
    const Date now = environment.now();
    if (options.type) {
        TRY_VOID(choose(options));
        TRY_VOID(refreshSchedule());
    }
    const auto number = AppBadge::currentNumber(events, now);
    if (json) {
        printBadgeJSON(number, AppBadge::silentNotifications(events, now));
    } else {
        printBadgeText(number);
    }
    return {};
}

}  // namespace

void addBadgeCommand(CLI::App& app, ChosenCommand& chosen) {
    const auto badge = std::make_shared<BadgeOptions>();
    CLI::App* command = app.add_subcommand("badge", "The number on the application's icon");
    command->add_option("type", badge->type, "none, missed, next, before or after; days before or after need an event");
    command->add_option("event", badge->event, "Identifier or name, for before and after");
    command->callback([badge, &chosen] {
        chosen.action = [badge](Environment& environment, const GlobalOptions& options) {
            return run(environment, *badge, options.json);
        };
    });
}

}  // namespace dayward

#include <gmock/gmock.h>

#include <algorithm>
#include <array>
#include <random>

#include "Classes/Category/NamedEventIconPicture.h"
#include "Classes/Event/EventLocalStore.h"
#include "Classes/Interface/List/EventByCustomTableManager.h"
#include "Classes/Interface/List/EventByDateTableManager.h"
#include "Classes/Interface/List/EventByNameTableManager.h"
#include "Classes/Interface/List/EventSearch.h"
#include "Classes/Interface/List/EventTableViewCell.h"
#include "Classes/Interface/List/TableView.h"
#include "Classes/Settings/AppSettings.h"
#include "ListFixture.h"
#include "Submodules/CorpLibrary2/Foundation/PlainTable.h"
#include "alerts/MissedEventsHelper.h"
#include "platform/NotificationCenter.h"

namespace dayward {
namespace {

using testing::ElementsAre;

/// Writes down what it is told, in the words of PlainTable.
class RecordingTable final : public TableView {
public:
    void reloadData() override { messages.push_back("reload"); }
    void insertRow(IndexPath path) override { messages.push_back("insert row " + text(path)); }
    void reloadRow(IndexPath path) override { messages.push_back("reload row " + text(path)); }
    void deleteRow(IndexPath path) override { messages.push_back("delete row " + text(path)); }
    void moveRow(IndexPath from, IndexPath to) override {
        messages.push_back("move row " + text(from) + " to " + text(to));
    }
    void insertSection(std::size_t index) override { messages.push_back("insert section " + std::to_string(index)); }
    void reloadSection(std::size_t index) override { messages.push_back("reload section " + std::to_string(index)); }
    void deleteSection(std::size_t index) override { messages.push_back("delete section " + std::to_string(index)); }
    void moveSection(std::size_t, std::size_t) override { messages.push_back("move section"); }
    void deselectRow(IndexPath path, bool) override { messages.push_back("deselect " + text(path)); }
    std::vector<std::shared_ptr<EventTableViewCell>> visibleCells() override { return cells; }
    std::optional<IndexPath> indexPathForCell(const EventTableViewCell& cell) override {
        for (std::size_t row = 0; row < cells.size(); ++row) {
            if (cells[row].get() == &cell && row != vanishing) return IndexPath{0, row};
        }
        return std::nullopt;
    }
    std::shared_ptr<EventTableViewCell> dequeueReusableCell(const std::string&) override {
        return std::make_shared<EventTableViewCell>();
    }
    double contentOffsetY() const override { return offset; }

    std::vector<std::string> messages;
    std::vector<std::shared_ptr<EventTableViewCell>> cells;
    std::size_t vanishing = 99;
    double offset = 0;

private:
    static std::string text(IndexPath path) { return PlainTable<int, int>::text(path); }
};

std::vector<std::string> keys(const EventTableManager& manager) {
    std::vector<std::string> result;
    for (const EventRow& event : manager.objects()) result.push_back(event->identifier());
    return result;
}

class TableManagers : public testing::Test {
protected:
    std::shared_ptr<HHEvent> event(const EventSpec& spec) { return makeEvent(environment, spec); }

    TestEnvironment environment{listOptions()};
    RecordingTable table;
};

TEST_F(TableManagers, AnUpdatedRowStaysUntilTheListIsSorted) {
    EventByDateTableManager manager(&table);
    manager.setObjects({event({"a", "2026-03-20"}), event({"b", "2026-03-21"}), event({"c", "2026-04-01"})});
    manager.updateObject(event({"a", "2026-05-01"}));
    EXPECT_THAT(keys(manager), ElementsAre("a", "b", "c"));
    manager.sortData();
    EXPECT_THAT(keys(manager), ElementsAre("b", "c", "a"));
    EXPECT_THAT(table.messages, ElementsAre("reload", "reload row 0.0", "insert section 2", "move row 0.1 to 0.0",
                                            "move row 0.1 to 2.0"));
    EXPECT_EQ(manager.titleForHeaderInSection(2), "  May 2026");
    EXPECT_EQ(manager.heightForHeaderInSection(2), 20.0);
    EXPECT_EQ(manager.heightForRowAtIndexPath({}), 70.0);
}

TEST_F(TableManagers, PullToClearEmptiesTheMissedSection) {
    EventByDateTableManager manager(&table);
    MissedEventsHelper::setMissedEvents({"a"});
    manager.setObjects({event({"a", "2026-03-01"}), event({"b", "2026-03-21"})});
    EXPECT_EQ(manager.titleForHeaderInSection(0), "  Missed");
    table.messages.clear();
    for (const auto& [offset, decelerates] : {std::pair(-151.0, false), {-150.0, true}, {0.0, true}}) {
        table.offset = offset;
        manager.scrollViewDidEndDragging(decelerates);
        EXPECT_TRUE(MissedEventsHelper::isMissed("a"));
    }
    table.offset = -150.5;
    manager.scrollViewDidEndDragging(true);
    EXPECT_FALSE(MissedEventsHelper::isMissed("a"));
    EXPECT_THAT(table.messages, ElementsAre("insert section 2", "move row 0.0 to 2.0", "delete section 0"));
}

TEST_F(TableManagers, NamesStandUnnamedFirstAndCapitalsBeforeSmallLetters) {
    EventByNameTableManager manager(nullptr);
    manager.setObjects({event({"1", "2026-05-01", "beta"}), event({"2", "2026-05-01", "Gamma"}),
                        event({"3", "2026-05-01", {}}), event({"4", "2026-05-01", "ärger"}),
                        event({"5", "2026-05-01", "bet"})});
    EXPECT_THAT(keys(manager), ElementsAre("3", "4", "2", "5", "1"));
    EXPECT_EQ(manager.numberOfSections(), 1);
    EXPECT_EQ(manager.titleForHeaderInSection(0), std::nullopt);
    manager.appendObject(event({"6", "2026-05-01", "az"}));
    EXPECT_THAT(keys(manager), ElementsAre("3", "4", "2", "6", "5", "1"));
}

TEST_F(TableManagers, TheCustomOrderIsKeptInTheSettings) {
    AppSettings::setTableSortIdentifiers({"c", "copy-source-x", "a"});
    EventByCustomTableManager manager(&table);
    manager.setObjects({event({"a"}), event({"copy-source (conflict 2)"}), event({"c"}), event({"unknown"})});
    EXPECT_THAT(keys(manager), ElementsAre("unknown", "c", "copy-source (conflict 2)", "a"));
    EXPECT_THAT(AppSettings::tableSortIdentifiers(), ElementsAre("c", "copy-source-x", "a"));

    manager.appendObject(event({"new"}));
    EXPECT_THAT(keys(manager), ElementsAre("new", "unknown", "c", "copy-source (conflict 2)", "a"));
    EXPECT_EQ(AppSettings::tableSortIdentifiers(), keys(manager));

    table.messages.clear();
    manager.EventByCustomTableManager::moveRowAtIndexPath(IndexPath{0, 4}, IndexPath{0, 1});
    EXPECT_THAT(keys(manager), ElementsAre("new", "a", "unknown", "c", "copy-source (conflict 2)"));
    EXPECT_EQ(AppSettings::tableSortIdentifiers(), keys(manager));
    EXPECT_THAT(table.messages, ElementsAre());

    manager.removeObject(event({"unknown"}));
    EXPECT_EQ(AppSettings::tableSortIdentifiers(), keys(manager));
    manager.sortData();
    EXPECT_THAT(keys(manager), ElementsAre("new", "a", "c", "copy-source (conflict 2)"));
}

TEST_F(TableManagers, ARowSaysTitleDateAndCountdown) {
    EventByDateTableManager manager(nullptr);
    const auto birthday = event({"a", "1960-05-04T00:00:00", "Mother"});
    birthday->setRrule("FREQ=YEARLY;INTERVAL=1");
    birthday->setShowAge(true);
    const auto running = event({"b", "2026-03-10T11:00:00", "Running", 2});
    const auto never = event({"c"});
    never->setTimes({});
    manager.setObjects({birthday, running, never});
    const auto texts = [&](const EventRow& row) {
        const auto cell = manager.cellForRowAtIndexPath(*manager.indexPathForObject(row));
        const EventRowText text = cell->text();
        return std::vector<std::string>{text.title, text.date, text.interval.value_or("-")};
    };
    EXPECT_THAT(texts(birthday), ElementsAre("Mother (66)", "Monday, May 4", "55 Days"));
    EXPECT_THAT(texts(running), ElementsAre("Running", testing::StartsWith("Tuesday, March 10"), "Now"));
    EXPECT_THAT(texts(never), ElementsAre("", "No date!", "-"));
    EXPECT_FALSE(manager.configureCell(std::make_shared<EventTableViewCell>(), nullptr));
}

TEST_F(TableManagers, AReusedRowTakesNoIconOfAnotherEvent) {
    EventTableViewCell cell;
    EventRowContent shown;
    shown.icon = RowPicture{"icon", {}};
    cell.setRow("a", shown);
    const auto icon = std::make_shared<const Image>();
    cell.setIcon(icon, "b");
    EXPECT_EQ(cell.icon(), nullptr);
    cell.setIcon(icon, "a");
    EXPECT_EQ(cell.icon(), icon);
    cell.setRow("a", shown);
    EXPECT_EQ(cell.icon(), icon);
    cell.setRow("b", shown);
    EXPECT_EQ(cell.icon(), nullptr);
}

TEST_F(TableManagers, VisibleRowsAreRewrittenAndVanishingOnesLeftAlone) {
    EventByDateTableManager manager(&table);
    manager.setObjects({event({"a", "2026-03-20", "A"}), event({"b", "2026-03-21", "B"})});
    table.cells = {std::make_shared<EventTableViewCell>(), std::make_shared<EventTableViewCell>()};
    table.vanishing = 1;
    manager.configureVisibleCells();
    EXPECT_EQ(table.cells[0]->text().title, "A");
    EXPECT_EQ(table.cells[1]->eventIdentifier(), std::nullopt);
}

TEST_F(TableManagers, SelectingTellsTheEventAndDeletingRemovesItFromTheStore) {
    EventByDateTableManager manager(&table);
    const auto stored = event({"a", "2026-03-20", "A"});
    EventLocalStore::shared().updateEvent(stored);
    manager.setObjects({stored});
    std::shared_ptr<HHEvent> selected;
    const auto observation = environment->notifications().addObserver(
        EventTableManagerDidSelectItemNotification,
        [&](const Notification& note) { selected = note.userInfo.at(EventTableManagerItemKey).as<HHEvent>(); },
        &manager);
    manager.didSelectRowAtIndexPath({0, 0});
    EXPECT_EQ(selected, stored);
    EXPECT_EQ(table.messages.back(), "deselect 0.0");
    manager.commitEditingStyle(EventTableManager::EditingStyle::insert, {0, 0});
    EXPECT_EQ(EventLocalStore::shared().itemsCount(), 1);
    manager.commitEditingStyle(EventTableManager::EditingStyle::remove, {0, 0});
    EXPECT_EQ(EventLocalStore::shared().itemsCount(), 0);
    EXPECT_EQ(manager.numberOfRowsInSection(0), 1);
}

TEST_F(TableManagers, TheStoredSortModeCountsByItsTwoLowBits) {
    const std::vector<std::pair<std::int64_t, const char*>> cases{{0, "by Date"}, {1, "by Name"}, {2, "Customizable"},
                                                                  {3, "by Date"}, {5, "by Name"}, {-1, "by Date"}};
    for (const auto& [stored, label] : cases) EXPECT_EQ(eventSortLabel(eventSortType(stored)), label) << stored;
}

TEST_F(TableManagers, ASearchLooksIntoNamesAndNotesWithoutCase) {
    const auto named = event({"a", "2026-05-01", "ЁЛКА Straße"});
    const auto noted = event({"b", "2026-05-01", {}});
    noted->setNote("buy a ёлка");
    const auto ids = [&](std::string_view text) {
        std::vector<std::string> result;
        for (const auto& found : eventsMatching(text, {named, noted})) result.push_back(found->identifier());
        return result;
    };
    EXPECT_THAT(ids("ёлк"), ElementsAre("a", "b"));
    EXPECT_THAT(ids("STRASSE"), ElementsAre("a"));
    EXPECT_THAT(ids("."), ElementsAre());
    EXPECT_THAT(ids(""), ElementsAre());
}

/// An event in the plain list, equal by identifier.
struct PlainRow {
    EventRow event;
    bool operator==(const PlainRow& other) const { return *event == *other.event; }
};
using PlainEvents = PlainTable<PlainRow, EventSection>;

PlainEvents plainEventsByDate() {
    PlainEvents plain;
    plain.sectionForObject = [](const PlainRow& row) {
        const Environment& environment = Environment::current();
        const auto calendar = environment.calendar();
        return EventSection(HHDTDSContainer::sectionOf(row.event->nextDate(), row.event->isComing(),
                                                       MissedEventsHelper::isMissed(row.event->identifier()),
                                                       {environment.now(), *calendar}));
    };
    plain.sectionBefore = [](const EventSection& a, const EventSection& b) {
        return HHDTDSContainer::isOrderedBefore(*a, *b);
    };
    plain.rowBefore = [](const PlainRow& a, const PlainRow& b) {
        return EventDateRank::isOrderedBefore(*a.event, *b.event, Environment::current().now());
    };
    return plain;
}

TEST_F(TableManagers, TheListByDateIsThePlainListStepByStep) {
    constexpr std::array<const char*, 7> kNames = {"",   "a", "B", "the same until here", "the same until hers",
                                                   "a ", "aa"};
    for (unsigned seed = 1; seed <= randomCases(30); ++seed) {
        SCOPED_TRACE("seed " + std::to_string(seed));
        std::mt19937 random(seed);
        const auto below = [&](int end) { return static_cast<int>(random() % static_cast<unsigned>(end)); };
        const int span = std::array{3, 40, 3000}[seed % 3];
        const auto anyRow = [&] {
            auto made = std::make_shared<HHEvent>(std::to_string(below(40)));
            const double days = below(100) == 0 ? 1e12 : below(span) - span / 3;  // sometimes beyond 2^52 seconds
            made->setDate(environment->now() + TimeInterval(86400.0 * days));
            if (below(15) > 0)
                made->setTimes({std::array{0, 719, 720, 721, 1439}[seed % 2 == 0 ? below(5) : 2]});
            else
                made->setTimes({});
            if (below(8) > 0) made->setName(kNames[static_cast<std::size_t>(below(7))]);
            if (below(4) == 0) made->setRrule("FREQ=DAILY;INTERVAL=5");
            if (below(3) == 0) {
                XDIDateInterval duration;
                duration.setValue(std::array{1, 12, 72}[static_cast<std::size_t>(below(3))], CalendarUnit::hour);
                made->setDuration(duration);
            }
            return made;
        };
        EventByDateTableManager manager(&table);
        PlainEvents plain = plainEventsByDate();
        for (int step = 0; step < 60; ++step) {
            const EventRow row = anyRow();
            switch (below(9)) {
                case 0:
                case 1: manager.appendObject(row), plain.appendObject({row}); break;
                case 2:
                case 3: manager.updateObject(row), plain.updateObject({row}); break;
                case 4: manager.removeObject(row), plain.removeObject({row}); break;
                case 5: manager.sortData(), plain.sortData(); break;
                case 6:
                    environment.clock->advance(TimeInterval(std::array{0.5, 60.0, 3600.0, 86400.0}[below(4)]));
                    break;
                case 7:
                    if (below(40) > 0) break;  // it writes a file
                    MissedEventsHelper::setMissedEvents({std::to_string(below(40)), std::to_string(below(40))});
                    break;
                case 8:
                    std::vector<EventRow> rows(static_cast<std::size_t>(below(30)));
                    std::ranges::generate(rows, anyRow);
                    if (below(8) == 0) rows.push_back(rows.empty() ? row : rows.front());
                    manager.setObjects(rows);
                    plain.setObjects({rows.begin(), rows.end()});
            }
            ASSERT_EQ(std::exchange(table.messages, {}), std::exchange(plain.log, {})) << "step " << step;
            const auto rows = plain.objects();
            ASSERT_TRUE(std::ranges::equal(manager.objects(), rows, {}, {}, &PlainRow::event)) << "step " << step;
            ASSERT_EQ(manager.sections(), plain.sections()) << "step " << step;
        }
    }
}

}  // namespace
}  // namespace dayward

#include <algorithm>
#include <random>

#include "Classes/Interface/List/EventByDateTableManager.h"
#include "Classes/Interface/List/HHDTDSContainer.h"
#include "ListFixture.h"
#include "alerts/MissedEventsHelper.h"

namespace dayward {
namespace {

using Type = HHDTDSContainer::Type;

struct SectionCase {
    const char* name;
    EventSpec event;
    bool missed;
    HHDTDSContainer section;
    const char* title;
};

HHDTDSContainer sectionOf(const TestEnvironment& environment, const HHEvent& event, bool isMissed) {
    const auto calendar = environment->calendar();
    const HHDTDSContainer::Moment moment(environment->now(), *calendar);
    return HHDTDSContainer::sectionOf(event.nextDate(), event.isComing(), isMissed, moment);
}

TEST(DateSections, TheFirstRuleThatFitsDecides) {
    TestEnvironment environment(listOptions());
    const std::vector<SectionCase> cases{
        {"running", {"1", "2026-03-10T11:00:00", {}, 2}, false, {Type::today, {}, {}}, "Today Tuesday, March 10"},
        {"running and missed",
         {"2", "2026-03-10T11:00:00", {}, 2},
         true,
         {Type::today, {}, {}},
         "Today Tuesday, March 10"},
        {"missed and past", {"3", "2026-03-01"}, true, {Type::missed, {}, {}}, "Missed"},
        {"past", {"4", "2026-03-10T11:59:59"}, false, {Type::passed, {}, {}}, "Passed"},
        {"later today", {"5", "2026-03-10T23:59:00"}, false, {Type::today, {}, {}}, "Today Tuesday, March 10"},
        {"later this month", {"6", "2026-03-11"}, false, {Type::ahead, 2026, 3}, "March 2026"},
        {"last month of the twelve", {"7", "2027-02-28"}, false, {Type::ahead, 2027, 2}, "February 2027"},
        {"twelve months ahead", {"8", "2027-03-01"}, false, {Type::ahead, 2027, {}}, "2027"},
    };
    for (const SectionCase& each : cases) {
        SCOPED_TRACE(each.name);
        const auto event = makeEvent(environment, each.event);
        const HHDTDSContainer section = sectionOf(environment, *event, each.missed);
        EXPECT_EQ(section, each.section);
        EXPECT_EQ(section.text(), each.title);
    }
    const auto never = makeEvent(environment, {"9"});
    never->setTimes({});
    EXPECT_EQ(sectionOf(environment, *never, true).text(), "Error");
}

TEST(DateSections, TitlesFollowTheLanguage) {
    TestEnvironment environment(listOptions("ru_RU"));
    EXPECT_EQ((HHDTDSContainer{Type::ahead, 2026, 5}).text(), "май 2026");
    EXPECT_EQ((HHDTDSContainer{Type::passed, {}, {}}).text(), "Прошедшие");
}

TEST(DateSections, StandInTimeOrderWithTheYearBehindItsMonths) {
    const std::vector<HHDTDSContainer> order{{Type::noDate, {}, {}},  {Type::missed, {}, {}},  {Type::today, {}, {}},
                                             {Type::ahead, 2026, 3},  {Type::ahead, 2026, 12}, {Type::ahead, 2027, 1},
                                             {Type::ahead, 2027, {}}, {Type::ahead, 2028, {}}, {Type::passed, {}, {}}};
    for (std::size_t a = 0; a < order.size(); ++a) {
        for (std::size_t b = 0; b < order.size(); ++b) {
            if (a == b) continue;
            EXPECT_EQ(HHDTDSContainer::isOrderedBefore(order[a], order[b]), a < b) << a << " " << b;
            EXPECT_NE(order[a], order[b]);
        }
    }
}

TEST(DateOrder, RunningThenSoonestThenMostRecentThenByName) {
    TestEnvironment environment(listOptions());
    const std::vector<EventSpec> order{{"a", "2026-03-10T10:00:00", "running longer", 9},
                                       {"b", "2026-03-10T11:00:00", "running", 9},
                                       {"c", "2026-03-10T12:00:00", "exactly now"},
                                       {"d", "2026-03-11", "Alpha"},
                                       {"e", "2026-03-11", "alpha"},
                                       {"f", "2026-03-11", "zeta"},
                                       {"g", "2026-03-12", {}},
                                       {"h", "2026-03-09", "recent"},
                                       {"i", "2026-03-08", "older"}};
    for (std::size_t a = 0; a < order.size(); ++a) {
        for (std::size_t b = 0; b < order.size(); ++b) {
            EXPECT_EQ(EventDateRank::isOrderedBefore(*makeEvent(environment, order[a]),
                                                     *makeEvent(environment, order[b]), environment->now()),
                      a < b)
                << order[a].key << order[b].key;
        }
    }
}

TEST(DateOrder, DatesCountToTheRoundedSecond) {
    TestEnvironment environment(listOptions());
    environment.clock->advance(TimeInterval(0.4));
    const auto early = makeEvent(environment, {"a", "2026-03-11T00:00:00", "b"});
    const auto late = makeEvent(environment, {"b", "2026-03-11T00:00:00", "a"});
    EXPECT_TRUE(EventDateRank::isOrderedBefore(*late, *early, environment->now()));
    EXPECT_FALSE(EventDateRank::isOrderedBefore(*early, *late, environment->now()));
}

/// Long enough for more than one thread.
TEST(DateOrder, ALongListIsInTheSameOrder) {
    TestEnvironment environment(listOptions());
    std::mt19937 random(7);
    std::vector<EventRow> events;
    for (int made = 0; made < 20000; ++made) {
        auto event = std::make_shared<HHEvent>(std::to_string(made));
        event->setDate(environment->now() + TimeInterval(static_cast<double>(random() % 5000) * 3600 - 2e6));
        event->setName(std::string(1, static_cast<char>('a' + random() % 20)));
        events.push_back(event);
    }
    EventByDateTableManager manager(nullptr);
    manager.setObjects(events);
    const auto isBefore = [now = environment->now()](const EventRow& a, const EventRow& b) {
        return EventDateRank::isOrderedBefore(*a, *b, now);
    };
    std::size_t count = 0;
    for (std::size_t section = 0; section < manager.numberOfSections(); ++section) {
        const std::vector<EventRow> rows = manager.objectsInSectionAtIndex(section);
        auto sorted = rows;
        std::ranges::sort(sorted, {}, [](const EventRow& row) { return std::stoi(row->identifier()); });
        std::ranges::stable_sort(sorted, isBefore);
        EXPECT_TRUE(rows == sorted) << "section " << section;
        count += rows.size();
    }
    EXPECT_EQ(count, events.size());
}

}  // namespace
}  // namespace dayward

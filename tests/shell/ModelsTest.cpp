// The adapters between screens and QML's lists: what they tell is checked step by step by Qt's own tester,
// and what they show is the screen's.
#include <QAbstractItemModelTester>
#include <QSignalSpy>
#include <random>
#include <set>

#include "Classes/Event/EventLocalStore.h"
#include "Classes/Settings/AppSettings.h"
#include "shell/EventRowItem.h"
#include "shell/ListItem.h"
#include "shell/ScreenItem.h"
#include "shell/ShellFixture.h"

namespace dayward {

namespace {

/// Shows the rows that it is given.
class Sheet final : public TableScreen {
public:
    std::vector<TableSection> wanted;

protected:
    std::vector<TableSection> makeSections() override { return wanted; }
};

TableSection section(const std::string& id, const std::vector<std::string>& rows) {
    TableSection made{id, "header " + id, "footer " + id, {}};
    for (const std::string& row : rows) made.rows.push_back(valueRow(row, row, {}, [] {}));
    return made;
}

/// What the model shows, as the sections do.
QStringList shown(const QAbstractItemModel& model, const QByteArray& text) {
    const int role = model.roleNames().key(text);
    QStringList lines;
    for (int place = 0; place < model.rowCount(); ++place) {
        lines.append(model.index(place, 0).data(role).value<TableRowData>().label);
    }
    return lines;
}

QStringList expected(const std::vector<TableSection>& sections) {
    QStringList lines;
    for (const TableSection& one : sections) {
        lines.append(QString::fromStdString(one.header));
        for (const TableRow& row : one.rows) lines.append(QString::fromStdString(row.label));
        lines.append(QString::fromStdString(one.footer));
    }
    return lines;
}

}  // namespace

class Models : public ShellFixture {};

TEST_F(Models, tellEveryChangeOfATableWithoutAReset) {
    Shell shell(*environment);
    const auto sheet = std::make_shared<Sheet>();
    shell.navigation().setRoot(sheet);
    TableModel& model = *shell.rootStack()->screens().front()->rows();
    const QAbstractItemModelTester tester(&model, QAbstractItemModelTester::FailureReportingMode::Fatal);
    const QSignalSpy resets(&model, &QAbstractItemModel::modelReset);
    std::mt19937 random(20260310);
    for (int round = 0; round < 200; ++round) {
        std::vector<std::string> names{"a", "b", "c", "d", "e", "f", "g", "h"};
        std::ranges::shuffle(names, random);
        sheet->wanted.clear();
        for (const char* id : {"one", "two", "three"}) {
            if (random() % 4 == 0) continue;
            std::vector<std::string> rows;
            for (std::size_t count = random() % 4; count > 0 && !names.empty(); --count) {
                rows.push_back(names.back());
                names.pop_back();
            }
            sheet->wanted.push_back(section(id, rows));
        }
        std::ranges::shuffle(sheet->wanted, random);
        sheet->reloadData();
        ASSERT_EQ(shown(model, "row"), expected(sheet->wanted)) << "round " << round;
    }
    EXPECT_EQ(resets.count(), 0);
}

TEST_F(Models, markTheEndsOfASectionAsRowsComeAndGo) {
    Shell shell(*environment);
    const auto sheet = std::make_shared<Sheet>();
    sheet->wanted = {section("one", {"a", "b"})};
    shell.navigation().setRoot(sheet);
    const TableModel& model = *shell.rootStack()->screens().front()->rows();
    const auto isLast = [&](int place) { return model.index(place).data(TableModel::LastRole).toBool(); };
    EXPECT_TRUE(isLast(2));
    sheet->wanted = {section("one", {"a", "b", "c"})};
    sheet->reloadData();
    EXPECT_FALSE(isLast(2));
    EXPECT_TRUE(isLast(3));
}

TEST_F(Models, handTheUsersHandOnToTheRow) {
    Shell shell(*environment);
    const auto sheet = std::make_shared<Sheet>();
    std::string typed;
    bool on = false;
    std::vector<std::size_t> wheels;
    Date picked;
    sheet->wanted = {{"one", {}, {}, {}}};
    auto& rows = sheet->wanted.front().rows;
    rows.push_back(textFieldRow("text", "Text", {}, [&](const std::string& text) { typed = text; }));
    rows.push_back(toggleRow("switch", "Switch", false, [&](bool value) { on = value; }));
    rows.push_back(wheelsRow("wheels", "Wheels", {}, {{{"1", "2"}, 0}, {{"3"}, 0}},
                             [&](const std::vector<std::size_t>& places) { wheels = places; }));
    rows.push_back(dateRow("date", "Date", {}, {environment.at("2026-03-10")}, [&](Date date) { picked = date; }));
    shell.navigation().setRoot(sheet);
    TableModel& model = *shell.rootStack()->screens().front()->rows();
    model.editText(model.placeOfRow("text"), QStringLiteral("Привет"));
    model.toggle(model.placeOfRow("switch"), true);
    model.pickWheels(model.placeOfRow("wheels"), {1, 0});
    model.pickDate(model.placeOfRow("date"), 2027, 2, 28, 23, 59);
    model.pickWheels(model.placeOfRow("wheels"), {-1, 0});
    model.select(-1);
    model.select(model.rowCount());
    EXPECT_EQ(typed, "Привет");
    EXPECT_TRUE(on);
    EXPECT_EQ(wheels, (std::vector<std::size_t>{1, 0}));
    EXPECT_EQ(environment.text(picked), "2027-02-28T23:59:00");
}

TEST_F(Models, keepARowThatBecomesAnotherKindDrawable) {
    Shell shell(*environment);
    const auto sheet = std::make_shared<Sheet>();
    sheet->wanted = {section("one", {"a"})};
    shell.navigation().setRoot(sheet);
    TableModel& model = *shell.rootStack()->screens().front()->rows();
    const int place = model.placeOfRow("a");
    EXPECT_EQ(model.index(place).data(TableModel::KindRole), "value");
    const QSignalSpy inserted(&model, &QAbstractItemModel::rowsInserted);
    sheet->wanted.front().rows.front().kind = RowKind::destructive;
    sheet->reloadData();
    EXPECT_EQ(inserted.count(), 1);
    EXPECT_EQ(model.index(place).data(TableModel::KindRole), "destructive");
}

class EventModels : public ShellFixture {
protected:
    static std::shared_ptr<HHEvent> event(const std::string& name, const std::string& key, Date date) {
        auto made = std::make_shared<HHEvent>(key);
        made->setName(name);
        made->setDate(date);
        return made;
    }
    QStringList titles(const EventListModel& model) const {
        QStringList list;
        for (int place = 0; place < model.rowCount(); ++place) {
            const auto row = model.index(place).data(EventListModel::RowRole).value<EventRowData>();
            list.append(row.eventKey.isEmpty() ? model.index(place).data(EventListModel::HeaderRole).toString()
                                               : row.title);
        }
        return list;
    }
};

TEST_F(EventModels, followTheStoreSearchAndOrder) {
    Shell shell(*environment);
    const HHSplitViewController split(shell.navigation());
    shell.navigation().setRoot(split.master());
    auto& list = *qobject_cast<ListItem*>(shell.rootStack()->screens().front());
    const QAbstractItemModelTester tester(list.events(), QAbstractItemModelTester::FailureReportingMode::Fatal);
    const QAbstractItemModelTester found(list.found(), QAbstractItemModelTester::FailureReportingMode::Fatal);
    EXPECT_FALSE(list.adviceTitle().isEmpty());
    EventLocalStore& store = EventLocalStore::shared();
    store.updateEvents({event("Banana", "k1", environment.at("2026-05-01")),
                        event("Apple", "k2", environment.at("2026-06-01"))});
    ASSERT_TRUE(until([&] { return list.events()->rowCount() == 4; })) << titles(*list.events()).join('|').toStdString();
    EXPECT_EQ(titles(*list.events()).at(1), "Banana");
    EXPECT_EQ(titles(*list.events()).at(3), "Apple");
    AppSettings::setTableSortType(static_cast<std::int64_t>(EventSortType::byName));
    ASSERT_TRUE(until([&] { return titles(*list.events()) == QStringList{"Apple", "Banana"}; }));
    list.search(QStringLiteral("NAN"));
    EXPECT_EQ(titles(*list.found()), QStringList{"Banana"});
    list.endSearch();
    list.events()->removeRow(0);
    ASSERT_TRUE(until([&] { return titles(*list.events()) == QStringList{"Banana"}; }));
    EXPECT_TRUE(list.undoDeletion());
    ASSERT_TRUE(until([&] { return titles(*list.events()) == QStringList{"Apple", "Banana"}; }));
}

TEST_F(EventModels, keepTheRowsCurrentThatQmlHasInSight) {
    Shell shell(*environment);
    const HHSplitViewController split(shell.navigation());
    shell.navigation().setRoot(split.master());
    EventListModel& model = *qobject_cast<ListItem*>(shell.rootStack()->screens().front())->events();
    EventLocalStore::shared().updateEvents({event("Apple", "k1", environment.at("2026-05-01")),
                                            event("Banana", "k2", environment.at("2026-05-02"))});
    AppSettings::setTableSortType(static_cast<std::int64_t>(EventSortType::byName));
    ASSERT_TRUE(until([&] { return model.rowCount() == 2; }));
    const auto row = [&](int place) {
        return model.index(place).data(EventListModel::RowRole).value<EventRowData>();
    };
    const auto changedByADay = [&] {
        QSignalSpy told(&model, &QAbstractItemModel::dataChanged);
        environment.clock->advance(TimeInterval(86400));
        split.master()->timerAction();
        std::set<int> places;
        for (const auto& change : told) places.insert(change.front().toModelIndex().row());
        return places;
    };
    auto first = std::make_unique<EventRowItem>();
    first->setRow(row(0));
    first->setRows(&model);
    EXPECT_EQ(changedByADay(), std::set<int>{0});
    first->setPooled(true);
    EXPECT_TRUE(changedByADay().empty());
    first->setRow(row(1));
    first->setPooled(false);
    EXPECT_EQ(changedByADay(), std::set<int>{1});
    {
        EventRowItem second;
        second.setRows(&model);
        second.setRow(row(1));
    }
    EXPECT_EQ(changedByADay(), std::set<int>{1}) << "one of two drew it no more";
    first->setRow(row(0));
    EXPECT_EQ(changedByADay(), std::set<int>{0});
    const QSignalSpy rows(first.get(), &EventRowItem::rowChanged);
    first->setRow(first->row());
    EXPECT_TRUE(rows.empty());
    first.reset();
    EXPECT_TRUE(changedByADay().empty());
}

TEST_F(EventModels, dragRowsInTheOrderMadeByHandOnly) {
    Shell shell(*environment);
    const HHSplitViewController split(shell.navigation());
    shell.navigation().setRoot(split.master());
    auto& list = *qobject_cast<ListItem*>(shell.rootStack()->screens().front());
    EventLocalStore::shared().updateEvents({event("One", "k1", environment.at("2026-05-01")),
                                            event("Two", "k2", environment.at("2026-05-02")),
                                            event("Three", "k3", environment.at("2026-05-03"))});
    ASSERT_TRUE(until([&] { return list.events()->rowCount() == 4; }));
    EXPECT_FALSE(list.events()->canMove(1, 2));
    AppSettings::setTableSortType(static_cast<std::int64_t>(EventSortType::byCustom));
    ASSERT_TRUE(until([&] { return list.events()->rowCount() == 3; }));
    const QAbstractItemModelTester tester(list.events(), QAbstractItemModelTester::FailureReportingMode::Fatal);
    const QStringList before = titles(*list.events());
    list.events()->dragRow(0, 2);
    EXPECT_EQ(titles(*list.events()), (QStringList{before[1], before[2], before[0]}));
    EXPECT_TRUE(list.events()->stepRow(2, false));
    EXPECT_EQ(titles(*list.events()), (QStringList{before[1], before[0], before[2]}));
    EXPECT_FALSE(list.events()->stepRow(2, true));
}

}  // namespace dayward

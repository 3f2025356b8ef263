#include "Classes/Interface/Screens/TableScreen.h"

#include <gmock/gmock.h>

#include <random>

#include "support/ScriptedPresenter.h"
#include "support/TestEnvironment.h"

namespace dayward {
namespace {

using ::testing::ElementsAre;

using Ids = std::vector<std::pair<std::string, std::vector<std::string>>>;

Ids idsOf(const std::vector<TableSection>& sections) {
    Ids ids;
    for (const TableSection& section : sections) {
        ids.emplace_back(section.id, std::vector<std::string>());
        for (const TableRow& row : section.rows) ids.back().second.push_back(row.id);
    }
    return ids;
}

class PlainScreen : public TableScreen {
public:
    std::vector<TableSection> makeSections() override { return wanted; }
    std::vector<TableSection> wanted;
};

/// Keeps a copy of the list by the updates alone, and the updates as lines.
class Mirror final : public TableUpdates {
public:
    explicit Mirror(PlainScreen& screen) : screen_(screen), ids(idsOf(screen.sections())) {
        screen.setTableUpdates(this);
    }
    void reloadData() override { add("reload"); }
    void insertRow(IndexPath p) override {
        add("insert", p);
        rows(p).insert(rows(p).begin() + row(p), screen_.row(p).id);
    }
    void reloadRow(IndexPath p) override { add("reload", p); }
    void deleteRow(IndexPath p) override {
        add("delete", p);
        rows(p).erase(rows(p).begin() + row(p));
    }
    void moveRow(IndexPath from, IndexPath to) override {
        add("move", from);
        const std::string id = rows(from)[from.row];
        rows(from).erase(rows(from).begin() + row(from));
        rows(to).insert(rows(to).begin() + row(to), id);
    }
    void insertSection(std::size_t i) override { ids.insert(ids.begin() + long(i), idsOf(screen_.sections())[i]); }
    void reloadSection(std::size_t i) override { add("section", {i, 0}); }
    void deleteSection(std::size_t i) override { ids.erase(ids.begin() + long(i)); }
    void moveSection(std::size_t from, std::size_t to) override {
        auto moved = ids[from];
        ids.erase(ids.begin() + long(from));
        ids.insert(ids.begin() + long(to), std::move(moved));
    }

    std::vector<std::string> lines;

private:
    void add(const std::string& what) { lines.push_back(what); }
    void add(const std::string& what, IndexPath p) {
        add(what + " " + std::to_string(p.section) + "." + std::to_string(p.row));
    }
    std::vector<std::string>& rows(IndexPath p) { return ids[p.section].second; }
    static long row(IndexPath p) { return static_cast<long>(p.row); }
    PlainScreen& screen_;

public:
    Ids ids;
};

std::vector<TableSection> randomSections(std::mt19937& random) {
    std::vector<TableSection> sections;
    std::vector<int> numbers{0, 1, 2, 3, 4, 5, 6, 7, 8};
    std::ranges::shuffle(numbers, random);
    std::vector<int> sectionNumbers{0, 1, 2};
    std::ranges::shuffle(sectionNumbers, random);
    std::size_t next = 0;
    for (std::size_t count = random() % 4; count > 0; --count) {
        TableSection section{"s" + std::to_string(sectionNumbers[count - 1]), {}, {}, {}};
        for (std::size_t rows = random() % 4; rows > 0; --rows) {
            section.rows.push_back(
                valueRow("r" + std::to_string(numbers[next++]), "", std::to_string(random() % 2), {}));
        }
        sections.push_back(std::move(section));
    }
    return sections;
}

class TableScreenTest : public ::testing::Test {
protected:
    TestEnvironment environment;
    std::shared_ptr<PlainScreen> held = std::make_shared<PlainScreen>();
    PlainScreen& screen = *held;
    ScriptedPresenter shell{held};
};

TEST_F(TableScreenTest, TellsEveryDifferenceAsUpdates) {
    std::mt19937 random(20261121);
    Mirror mirror(screen);
    for (int round = 0; round < 2000; ++round) {
        screen.wanted = randomSections(random);
        screen.reloadData();
        ASSERT_EQ(idsOf(screen.sections()), idsOf(screen.wanted)) << round;
        ASSERT_EQ(mirror.ids, idsOf(screen.wanted)) << round;
    }
}

TEST_F(TableScreenTest, TellsNoMoreThanWhatDiffers) {
    screen.wanted = {{"a", "", "", {valueRow("1", "One", "x", {}), valueRow("2", "Two", "x", {})}}};
    screen.reloadData();
    Mirror mirror(screen);
    screen.reloadData();
    screen.wanted[0].footer = "next";
    screen.wanted[0].rows[1].detail = "y";
    screen.wanted[0].rows.insert(screen.wanted[0].rows.begin() + 1, textRow("new", "n"));
    screen.reloadData();
    EXPECT_THAT(mirror.lines, ElementsAre("section 0.0", "insert 0.1", "reload 0.2"));
}

TEST_F(TableScreenTest, WritesWhatTheUserDoesIntoTheRowBeforeItsAction) {
    std::string typed;
    const auto wheels = std::vector<Wheel>{{{"1", "2"}, 0}};
    auto open = wheelsRow("w", "Every", "1", wheels, {});
    open.open = false;
    auto disabled = toggleRow("d", "Lock", false, [&](bool) { typed = "never"; });
    disabled.enabled = false;
    screen.wanted = {{"a",
                      "",
                      "",
                      {textFieldRow("t", "Name", {"", "Name"},
                                    [&](const std::string& text) {
                                        typed = text;
                                        auto& content = std::get<TextContent>(screen.wanted[0].rows[0].content);
                                        content.text = text;
                                        screen.reloadData();
                                    }),
                       open, disabled}}};
    screen.reloadData();
    Mirror mirror(screen);
    screen.editText({0, 0}, "Party");
    EXPECT_EQ(typed, "Party");
    EXPECT_THAT(mirror.lines, ElementsAre()) << "the field that is typed in is not drawn anew";
    screen.select({0, 1});
    EXPECT_TRUE(*screen.row({0, 1}).open);
    EXPECT_EQ(accessibleSentence(screen.row({0, 1})), "Every, 1, open");
    screen.toggle({0, 2}, true);
    screen.pickWheels({0, 1}, {2});
    screen.select({7, 7});
    EXPECT_EQ(typed, "Party");
    EXPECT_EQ(accessibleSentence(screen.row({0, 2})), "Lock, off");
}

TEST_F(TableScreenTest, TellsThatASwitchIsTurned) {
    bool told = false;
    screen.wanted = {{"a", "", "", {toggleRow("s", "Icons", false, [&](bool on) { told = on; })}}};
    screen.reloadData();
    Mirror mirror(screen);
    screen.toggle({0, 0}, true);
    EXPECT_TRUE(told);
    EXPECT_EQ(screen.row({0, 0}).on, true);
    EXPECT_THAT(mirror.lines, ElementsAre("reload 0.0")) << "what draws the row is to know, whoever turned it";
}

}  // namespace
}  // namespace dayward

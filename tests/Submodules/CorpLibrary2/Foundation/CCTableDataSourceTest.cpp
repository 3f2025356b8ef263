#include "Submodules/CorpLibrary2/Foundation/CCTableDataSource.h"

#include <gtest/gtest.h>

#include <cmath>
#include <random>

#include "Submodules/CorpLibrary2/Foundation/PlainTable.h"

namespace dayward {
namespace {

/// Equal by key alone, as records are.
struct Item {
    int key = 0;
    int section = 0;
    int order = 0;  ///< below 0: has no place of its own and goes first
    bool operator==(const Item& other) const { return key == other.key; }
};

struct ItemTraits {
    struct RowHash {
        std::size_t operator()(const Item& item) const { return static_cast<std::size_t>(item.key % 50); }
    };
    using RowEqual = std::equal_to<Item>;
    using SectionHash = std::hash<int>;
    using SectionEqual = std::equal_to<int>;
};

using Before = std::function<bool(const Item&, const Item&)>;

bool byOrder(const Item& a, const Item& b) { return a.order < b.order; }
/// True both ways for two items without a place.
bool byPlace(const Item& a, const Item& b) {
    if (a.order < 0) return true;
    if (b.order < 0) return false;
    return a.order < b.order;
}

class ItemTable final : public CCTableDataSource<Item, int, ItemTraits>, public CCTableDataSourceDelegate {
public:
    explicit ItemTable(Before before = {}, bool sectionsAreOrdered = false)
        : before_(std::move(before)), sectionsAreOrdered_(sectionsAreOrdered) {
        setDelegate(this);
    }

    std::vector<std::string> takeLog() { return std::exchange(log, {}); }

    std::vector<std::string> log;
    std::size_t comparisons = 0;

protected:
    int sectionForObject(const Item& item) const override { return item.section; }
    SectionComparator sectionsSortComparator() const override {
        return sectionsAreOrdered_ ? SectionComparator(std::less<int>()) : SectionComparator();
    }
    RowComparator objectsSortComparatorForSection(const int&) const override {
        if (!before_) return {};
        return [this](const Item& a, const Item& b) {
            ++const_cast<ItemTable*>(this)->comparisons;
            return before_(a, b);
        };
    }

private:
    static std::string text(IndexPath path) { return PlainTable<Item, int>::text(path); }

    void reloadDataForTableDataSource(CCTableDataSourceBase&) override { log.push_back("reload"); }
    void insertRowAtIndexPath(CCTableDataSourceBase&, IndexPath path) override {
        log.push_back("insert row " + text(path));
    }
    void reloadRowAtIndexPath(CCTableDataSourceBase&, IndexPath path) override {
        log.push_back("reload row " + text(path));
    }
    void deleteRowAtIndexPath(CCTableDataSourceBase&, IndexPath path) override {
        log.push_back("delete row " + text(path));
    }
    void moveRowAtIndexPath(CCTableDataSourceBase&, IndexPath from, IndexPath to) override {
        log.push_back("move row " + text(from) + " to " + text(to));
    }
    void insertSectionAtIndex(CCTableDataSourceBase&, std::size_t index) override {
        log.push_back("insert section " + std::to_string(index));
    }
    void reloadSectionAtIndex(CCTableDataSourceBase&, std::size_t) override { log.push_back("reload section"); }
    void deleteSectionAtIndex(CCTableDataSourceBase&, std::size_t index) override {
        log.push_back("delete section " + std::to_string(index));
    }
    void moveSectionAtIndex(CCTableDataSourceBase&, std::size_t, std::size_t) override {
        log.push_back("move section");
    }

    Before before_;
    bool sectionsAreOrdered_;
};

using Log = std::vector<std::string>;

std::vector<int> keys(const std::vector<Item>& items) {
    std::vector<int> result;
    for (const auto& item : items) result.push_back(item.key);
    return result;
}

TEST(CCTableDataSource, UpdatedRowStaysUntilItIsSorted) {
    ItemTable table(byOrder, true);
    table.setObjects({{1, 1, 1}, {2, 1, 2}, {3, 1, 3}});
    table.takeLog();
    table.updateObject({1, 2, 9});
    EXPECT_EQ(keys(table.objects()), (std::vector{1, 2, 3}));
    EXPECT_EQ(table.takeLog(), Log{"reload row 0.0"});
    table.sortData();
    EXPECT_EQ(table.takeLog(),
              (Log{"insert section 1", "move row 0.1 to 0.0", "move row 0.2 to 0.1", "move row 0.2 to 1.0"}));
    EXPECT_EQ(table.indexPathForObject({1}), (IndexPath{1, 0}));
    table.sortData();
    EXPECT_EQ(table.takeLog(), Log{}) << "a sorted list sends nothing";
    table.updateObject({1, 1, 0});
    table.sortData();
    EXPECT_EQ(table.takeLog(), (Log{"reload row 1.0", "move row 1.0 to 0.0", "delete section 1"}));
    table.updateObject({7, 1, 2});
    EXPECT_EQ(table.takeLog(), Log{"insert row 0.2"}) << "an unknown row is appended, behind its equals";
}

TEST(CCTableDataSource, RowsMovedSilentlyKeepTheirPlaces) {
    class Mover : public CCTableDataSource<Item, int, ItemTraits> {
    public:
        using CCTableDataSource::moveObjectSilently;
    } mover;
    mover.setObjects({{1}, {2}, {3}});
    mover.moveObjectSilently({0, 0}, {0, 2});
    EXPECT_EQ(keys(mover.objects()), (std::vector{2, 3, 1}));
    EXPECT_EQ(mover.indexPathForObject({1}), (IndexPath{0, 2}));
    EXPECT_DEATH(mover.moveObjectSilently({0, 0}, {0, 3}), "past the end");
}

TEST(CCTableDataSource, ReadsOutOfRangeStopTheProcess) {
    ItemTable table;
    table.setObjects({{1}});
    EXPECT_DEATH((void)table.sectionAtIndex(1), "no section 1");
    EXPECT_DEATH((void)table.objectsInSectionAtIndex(1), "no section 1");
    EXPECT_DEATH((void)table.objectAtIndexPath({0, 1}), "no row 1");
    EXPECT_EQ(table.indexPathForObject({2}), std::nullopt);
}

struct OrderCase {
    const char* name;
    Before before;
    bool sectionsAreOrdered;
    int keys;  ///< few keys against many appends make equal rows
};

class RandomOperations : public testing::TestWithParam<OrderCase> {};

TEST_P(RandomOperations, TellTheSameAsThePlainList) {
    const auto& order = GetParam();
    for (unsigned seed = 1; seed <= randomCases(60); ++seed) {
        SCOPED_TRACE("seed " + std::to_string(seed));
        std::mt19937 random(seed);
        const auto below = [&](int end) { return static_cast<int>(random() % static_cast<unsigned>(end)); };
        const auto anyItem = [&] { return Item{below(order.keys), below(5), below(12) - 3}; };
        ItemTable table(order.before, order.sectionsAreOrdered);
        PlainTable<Item, int> plain;
        plain.sectionForObject = [](const Item& item) { return item.section; };
        plain.rowBefore = order.before;
        if (order.sectionsAreOrdered) plain.sectionBefore = std::less<int>();

        for (int step = 0; step < 120; ++step) {
            const auto item = anyItem();
            switch (below(8)) {
                case 0:
                case 1: table.appendObject(item), plain.appendObject(item); break;
                case 2:
                case 3:
                case 4: table.updateObject(item), plain.updateObject(item); break;
                case 5: table.removeObject(item), plain.removeObject(item); break;
                case 6: table.sortData(), plain.sortData(); break;
                case 7:
                    if (below(8) > 0) break;
                    std::vector<Item> items(static_cast<std::size_t>(below(20)));
                    for (auto& each : items) each = anyItem();
                    table.setObjects(items), plain.setObjects(items);
            }
            ASSERT_EQ(table.takeLog(), std::exchange(plain.log, {})) << "step " << step;
            ASSERT_EQ(keys(table.objects()), keys(plain.objects())) << "step " << step;
            ASSERT_EQ(table.sections(), plain.sections()) << "step " << step;
        }
    }
}

INSTANTIATE_TEST_SUITE_P(Orders, RandomOperations,
                         testing::Values(OrderCase{"none", {}, false, 1000}, OrderCase{"order", byOrder, true, 60},
                                         OrderCase{"place", byPlace, false, 60},
                                         OrderCase{"placeSections", byPlace, true, 30},
                                         OrderCase{"equalRows", byOrder, true, 6},
                                         OrderCase{"equalPlaces", byPlace, false, 4}),
                         [](const auto& orderCase) { return std::string(orderCase.param.name); });

TEST(CCTableDataSource, ContradictingComparatorsLoseNoRow) {
    for (unsigned seed = 1; seed <= 20; ++seed) {
        SCOPED_TRACE("seed " + std::to_string(seed));
        std::mt19937 random(seed);
        ItemTable table([&random](const Item&, const Item&) { return random() % 2 == 0; });
        std::vector<Item> items;
        for (int key = 0; key < 100; ++key) items.push_back({key});
        table.setObjects(items);
        for (int key = 100; key < 150; ++key) table.appendObject({key});
        table.sortData();
        auto found = keys(table.objects());
        std::sort(found.begin(), found.end());
        ASSERT_EQ(found.size(), 150U);
        for (int key = 0; key < 150; ++key) ASSERT_EQ(found[static_cast<std::size_t>(key)], key);
    }
}

/// The order of the rows, and with it the stamp, changes from outside.
class TurningTable final : public CCTableDataSource<int> {
public:
    int stamp = 0;

protected:
    RowComparator objectsSortComparatorForSection(const std::monostate&) const override {
        const bool isTurned = stamp % 2 == 1;
        return [isTurned](int a, int b) { return isTurned ? b < a : a < b; };
    }
    std::int64_t orderStamp() const override { return stamp; }
};

TEST(CCTableDataSource, ChangedStampMakesTheOrderBeCheckedAgain) {
    TurningTable table;
    table.setObjects({1, 2, 3, 5, 6, 7});
    table.appendObject(4);
    EXPECT_EQ(table.indexPathForObject(4), (IndexPath{0, 3}));
    table.stamp = 1;
    table.appendObject(8);
    EXPECT_EQ(table.indexPathForObject(8), (IndexPath{0, 0})) << "the first row that 8 is before, in the turned order";
}

double comparisonsForEachRow(int count) {
    ItemTable table(byOrder, true);
    std::mt19937 random(7);
    const auto anyOrder = [&] { return static_cast<int>(random() % 1000000); };
    for (int key = 0; key < count; ++key) table.appendObject({key, key % 7, anyOrder()});
    for (int key = 0; key < count; ++key) table.updateObject({key, key % 11, anyOrder()});
    table.sortData();
    table.takeLog();
    table.sortData();
    EXPECT_EQ(table.takeLog(), Log{});
    table.updateObject({table.objects().front().key, 0, 2000000});
    for (int key = count; key < 2 * count; ++key) table.appendObject({key, key % 11, anyOrder()});
    for (int key = 0; key < 2 * count; key += 2) table.removeObject({key});
    EXPECT_EQ(table.objects().size(), static_cast<std::size_t>(count));
    return static_cast<double>(table.comparisons) / count;
}

TEST(CCTableDataSource, WorkForEachRowGrowsNoFasterThanTheLogarithm) {
    const double few = comparisonsForEachRow(1000);
    const double many = comparisonsForEachRow(16000);
    EXPECT_LT(many / few, 1.5 * std::log2(16000) / std::log2(1000));
}

}  // namespace
}  // namespace dayward

#include "Classes/Category/CategoryLocalStore.h"

#include <gmock/gmock.h>

#include <thread>

#include "Classes/Category/ColorEventBackgroundPicture.h"
#include "Classes/Category/ColorEventBackgroundTemplate.h"
#include "Classes/Category/EventCategory.h"
#include "Classes/Category/NamedEventIconPicture.h"
#include "Classes/Category/PictureClasses.h"
#include "Classes/Settings/AppSettings.h"
#include "platform/FileSystem.h"
#include "platform/KeyedArchiver.h"
#include "platform/UserDefaults.h"
#include "support/NotificationRecorder.h"
#include "support/TestEnvironment.h"

namespace dayward {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using Initialize = CategoryLocalStore::Initialize;

constexpr const char* kListUpdate = "CategoryLocalStoreDidUpdateNotification";
constexpr const char* kKeyUpdate = "CCKeyStoreDidUpdateNotification removed=[] updated=[Categories]";

TestEnvironment::Options categoryOptions(const std::string& home = {}) {
    auto classes = std::make_shared<ArchiveClasses>();
    registerColorClass(*classes);
    registerSyncClasses(*classes);
    registerPictureClasses(*classes);
    TestEnvironment::Options options;
    options.archiveClasses = classes;
    options.home = home;
    return options;
}

std::vector<std::string> names(const std::vector<CategoryLocalStore::Category>& categories) {
    std::vector<std::string> all;
    for (const auto& category : categories) all.push_back(category->name.value_or("-"));
    return all;
}

std::shared_ptr<EventCategory> category(const std::string& key, std::optional<std::string> name) {
    auto made = std::make_shared<EventCategory>(key);
    made->name = std::move(name);
    return made;
}

/// One device.
struct Device {
    explicit Device(const std::string& home = {}) : environment(categoryOptions(home)) {}

    [[nodiscard]] Object stored(const char* key) const {
        return environment.environment->standardDefaults().objectForKey(key);
    }
    [[nodiscard]] CCSyncItemVersion version() { return *store().syncVersionForKey("Categories"); }
    CategoryLocalStore& store() { return environment->shared<CategoryLocalStore>(); }

    TestEnvironment environment;
    NotificationRecorder notifications{*environment,
                                       {CategoryLocalStoreDidUpdateNotification, CCKeyStoreDidUpdateNotification}};
};

class CategoryLocalStoreTest : public testing::Test {
protected:
    Device device;
    CategoryLocalStore& store = device.store();
};

TEST_F(CategoryLocalStoreTest, FirstStartHasTheBuiltInCategoryAlone) {
    const auto categories = store.getCategories();
    ASSERT_EQ(categories.size(), 1U);
    const EventCategory& builtIn = *categories[0];
    EXPECT_EQ(builtIn.key, "default");
    EXPECT_EQ(builtIn.name, "Default");
    EXPECT_EQ(builtIn.eventFont, "ChalkboardSE-Bold");
    EXPECT_EQ(builtIn.eventTextColor, Color::black());
    EXPECT_TRUE(builtIn.eventIcon->isEqual(NamedEventIconPicture("remind")));
    EXPECT_TRUE(builtIn.eventBackgroundTpl->isEqual(ColorEventBackgroundTemplate(Color::white())));
    EXPECT_EQ(store.defaultCategory()->key, "default");
    ASSERT_NE(device.stored("k003").array(), nullptr);
    EXPECT_EQ(device.stored("k003").array()->size(), 1U);
    EXPECT_TRUE(device.stored("k004").isNull());
    EXPECT_EQ(device.version(), CCSyncItemVersion::zero());
    EXPECT_THAT(device.notifications.take(), IsEmpty());
}

TEST_F(CategoryLocalStoreTest, BuiltInCategoryTakesAnOlderLook) {
    const Dictionary settings{
        {AppSettings::Keys::defaultBackground, std::make_shared<ColorEventBackgroundPicture>(Color{1, 0, 0, 1})},
        {AppSettings::Keys::defaultFontName, "Courier"},
        {AppSettings::Keys::defaultTextColor, colorObject(Color{0, 0, 1, 1})}};
    const std::string path = joinPath(device.environment->paths().applicationSupport, AppSettings::kFileName);
    ASSERT_TRUE(
        writeFileAtomically(device.environment->files(), path, KeyedArchiver::archivedDataWithRootObject(settings)));
    const auto builtIn = store.defaultCategory();
    EXPECT_TRUE(builtIn->eventBackgroundTpl->isEqual(ColorEventBackgroundTemplate(Color{1, 0, 0, 1})));
    EXPECT_EQ(builtIn->eventFont, "Courier");
    EXPECT_EQ(builtIn->eventTextColor, (Color{0, 0, 1, 1}));
    EXPECT_TRUE(builtIn->eventIcon->isEqual(NamedEventIconPicture("remind")));
}

TEST_F(CategoryLocalStoreTest, SortsByCodePointsBehindTheBuiltInOne) {
    store.setCategories({category("1", "apple"), category("2", "Zebra"), category("3", std::nullopt),
                         category("4", "Ähre"), category("5", ""), category("6", "Aa")});
    EXPECT_THAT(names(store.sortCategories()), ElementsAre("Default", "-", "", "Aa", "Zebra", "apple", "Ähre"));
}

TEST_F(CategoryLocalStoreTest, SavesAUsersChangeWithVersionAndNotifications) {
    const auto made = store.categoryWithName("Work", Initialize::no);
    EXPECT_THAT(device.notifications.take(), ElementsAre(kListUpdate, kKeyUpdate));
    EXPECT_EQ(device.version(), CCSyncItemVersion(device.environment.clock->now()));
    EXPECT_EQ(made->eventFont, "ChalkboardSE-Bold");

    device.environment.clock->advance(TimeInterval(1));
    EXPECT_EQ(store.categoryWithName("Work", Initialize::no)->key, made->key);
    EXPECT_THAT(device.notifications.take(), IsEmpty());
    EXPECT_LT(device.version(), CCSyncItemVersion(device.environment.clock->now()));

    store.updateCategory(category(made->key, "Office"), Initialize::no);
    EXPECT_THAT(names(store.sortCategories()), ElementsAre("Default", "Office"));
    store.removeCategory(category(made->key, std::nullopt));
    EXPECT_THAT(names(store.sortCategories()), ElementsAre("Default"));
    EXPECT_THAT(device.notifications.take(), ElementsAre(kListUpdate, kKeyUpdate, kListUpdate, kKeyUpdate));
}

TEST_F(CategoryLocalStoreTest, InitializingKeepsTheVersionAndSilence) {
    store.categoryWithName("Holiday", Initialize::yes);
    store.updateCategory(category("x", "Birthday"), Initialize::yes);
    EXPECT_THAT(names(store.sortCategories()), ElementsAre("Default", "Birthday", "Holiday"));
    EXPECT_TRUE(device.stored("k004").isNull());
    EXPECT_THAT(device.notifications.take(), IsEmpty());
}

TEST_F(CategoryLocalStoreTest, NeverRemovesTheBuiltInCategory) {
    const Object before = device.stored("k003");
    store.removeCategory(store.defaultCategory());
    EXPECT_THAT(names(store.getCategories()), ElementsAre("Default"));
    EXPECT_TRUE(device.stored("k004").isNull());
    EXPECT_THAT(device.notifications.take(), IsEmpty());
    store.setCategories({});
    EXPECT_THAT(names(store.getCategories()), ElementsAre("Default"));
}

TEST_F(CategoryLocalStoreTest, AnswersNullForNoKeyAndAnUnknownOne) {
    EXPECT_EQ(store.getCategory(std::nullopt), nullptr);
    EXPECT_EQ(store.getCategory("nobody"), nullptr);
    EXPECT_EQ(store.createCategory()->name, std::nullopt);
    EXPECT_EQ(store.getCategories().size(), 1U) << "a created category is not stored yet";
}

TEST_F(CategoryLocalStoreTest, DropsBlocksThatHoldNoCategory) {
    const Data good = KeyedArchiver::archivedDataWithRootObject(category("good", "Good"));
    Data cut = good;
    cut.resize(cut.size() / 2);
    const Array blocks{good, cut, Data{}, dataOf("bplist00 no"), KeyedArchiver::archivedDataWithRootObject("text"),
                       "x",  7};
    device.environment->standardDefaults().setObject(blocks, "k003");
    EXPECT_THAT(names(store.sortCategories()), ElementsAre("Default", "Good"));
    device.environment->standardDefaults().setObject("no array", "k003");
    EXPECT_THAT(names(store.sortCategories()), ElementsAre("Default", "Good")) << "the cache stands until a save";
}

TEST_F(CategoryLocalStoreTest, TravelsToAnotherDeviceOnceAndWhole) {
    auto made = store.createCategory();
    made->name = "Work";
    store.updateCategory(made, Initialize::no);
    Device other;
    CategoryLocalStore& receiver = other.store();
    EXPECT_LT(other.version(), device.version());
    const auto value = store.syncRead("Categories", receiver);
    ASSERT_TRUE(value);
    ASSERT_TRUE(receiver.syncWrite(*value, "Categories", store));
    EXPECT_EQ(other.version(), device.version());
    EXPECT_THAT(names(receiver.sortCategories()), ElementsAre("Default", "Work"));
    EXPECT_TRUE(receiver.getCategory(made->key)->eventIcon->isEqual(*made->eventIcon));
    EXPECT_THAT(other.notifications.take(), ElementsAre(kListUpdate)) << "it must not bounce back";
    EXPECT_THAT(receiver.getSyncKeys(), ElementsAre("Categories"));
    EXPECT_TRUE(receiver.initialized());
}

TEST_F(CategoryLocalStoreTest, RefusesWhatIsNoListInTransit) {
    store.categoryWithName("Work", Initialize::no);
    (void)device.notifications.take();
    const auto version = std::make_shared<CCSyncItemVersion>(TimeInterval(5));
    const Object refused[] = {nullptr,
                              "text",
                              Dictionary{},
                              Dictionary{{"p002", version}},
                              Dictionary{{"p001", "no array"}, {"p002", version}},
                              Dictionary{{"p001", Array{category("a", "A"), "no category"}}, {"p002", version}}};
    for (const Object& value : refused) {
        const auto written = store.syncWrite(value, "Categories", store);
        ASSERT_FALSE(written);
        EXPECT_EQ(written.error().code, 0);
        EXPECT_EQ(written.error().userInfo.at("syncKey"), "Categories");
    }
    EXPECT_THAT(names(store.sortCategories()), ElementsAre("Default", "Work"));
    EXPECT_GT(device.version(), *version);
    EXPECT_THAT(device.notifications.take(), IsEmpty());
}

TEST_F(CategoryLocalStoreTest, AValueWithoutAVersionLeavesNone) {
    store.categoryWithName("Work", Initialize::no);
    ASSERT_TRUE(
        store.syncWrite(Dictionary{{"p001", Array{category("a", "A")}}, {"p002", "text"}}, "Categories", store));
    EXPECT_EQ(device.version(), CCSyncItemVersion::zero());
    EXPECT_THAT(names(store.sortCategories()), ElementsAre("Default", "A"));
}

TEST_F(CategoryLocalStoreTest, ASecondProcessSeesAndKeepsWhatTheFirstSaved) {
    Device second(device.environment.home);
    EXPECT_THAT(names(second.store().sortCategories()), ElementsAre("Default"));
    store.categoryWithName("Work", Initialize::no);
    second.store().categoryWithName("Home", Initialize::no);
    EXPECT_THAT(names(second.store().sortCategories()), ElementsAre("Default", "Home", "Work"));
    EXPECT_THAT(names(store.sortCategories()), ElementsAre("Default", "Work"));
    (void)device.notifications.take();
    store.refreshFromDisk();
    EXPECT_THAT(names(store.sortCategories()), ElementsAre("Default", "Home", "Work"));
    EXPECT_THAT(device.notifications.take(), ElementsAre(kListUpdate));
    store.refreshFromDisk();
    EXPECT_THAT(device.notifications.take(), IsEmpty());
}

TEST_F(CategoryLocalStoreTest, AFirstLookNeverOverwritesWhatAnotherProcessSaved) {
    Device second(device.environment.home);
    ASSERT_TRUE(second.stored("k003").isNull());
    store.categoryWithName("Work", Initialize::no);
    EXPECT_THAT(names(second.store().sortCategories()), ElementsAre("Default", "Work"));
    store.refreshFromDisk();
    EXPECT_THAT(names(store.sortCategories()), ElementsAre("Default", "Work"));
}

TEST_F(CategoryLocalStoreTest, WhatTheDefaultsTookInAlreadyIsKnownToTheList) {
    store.categoryWithName("Work", Initialize::no);
    Device second(device.environment.home);
    second.store().categoryWithName("Home", Initialize::no);
    ASSERT_TRUE(device.environment->standardDefaults().synchronize());
    (void)device.notifications.take();
    store.refreshFromDisk();
    EXPECT_THAT(device.notifications.take(), ElementsAre(kListUpdate));
    ASSERT_EQ(store.getCategories().size(), 3U);
    second.store().categoryWithName("Garden", Initialize::no);
    ASSERT_TRUE(device.environment->standardDefaults().synchronize());
    store.categoryWithName("School", Initialize::no);
    EXPECT_THAT(names(store.sortCategories()), ElementsAre("Default", "Garden", "Home", "School", "Work"));
}

TEST_F(CategoryLocalStoreTest, TwoProcessesThatChangeTheListAtOnceLoseNothing) {
    constexpr int kEach = 15;
    Device second(device.environment.home);
    const auto add = [](Device& own, const char* prefix) {
        for (int i = 0; i < kEach; ++i) own.store().categoryWithName(prefix + std::to_string(i), Initialize::no);
    };
    std::thread other(add, std::ref(second), "second ");
    add(device, "first ");
    other.join();
    store.refreshFromDisk();
    EXPECT_EQ(store.getCategories().size(), 2U * kEach + 1);
}

}  // namespace
}  // namespace dayward

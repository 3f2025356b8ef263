#include <algorithm>
#include <cctype>
#include <cerrno>
#include <thread>

#include "Classes/Category/CategoryLocalStore.h"
#include "Classes/Category/EventCategory.h"
#include "Classes/Category/ImageEventBackgroundPicture.h"
#include "Classes/Category/NamedEventIconPicture.h"
#include "Classes/Interface/Edit/EventEditViewController.h"
#include "Classes/Interface/General/FailedSaveText.h"
#include "Classes/Interface/List/EventTableViewCell.h"
#include "Classes/Settings/AppSettings.h"
#include "EventScreensFixture.h"
#include "alerts/MissedEventsHelper.h"
#include "platform/DispatchQueue.h"
#include "platform/FailedSave.h"
#include "platform/FileSystem.h"
#include "support/NotificationRecorder.h"
#include "sync/CCUbiquityKeyStoreProgressInfo.h"

namespace dayward {
namespace {

using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::Not;

class EventList : public EventScreens {
protected:
    void sortBy(EventSortType type) { AppSettings::setTableSortType(static_cast<std::int64_t>(type)); }
};

TEST_F(EventList, TakesUpTheStoresChangesAsRowMessages) {
    store({"a", "2026-03-20", "A"});
    store({"b", "2026-03-25", "B"});
    start();
    EXPECT_THAT(rows(list().table()), ElementsAre("[March 2026]", "a", "b"));
    store({"c", "2026-03-22", "C"});
    store({"d", "2027-12-01", "D"});
    store({"a", "2026-04-20", "A"});
    EXPECT_THAT(view.take(), ElementsAre("insert 0.1", "insert section 1", "reload 0.0"));
    settle();
    EXPECT_THAT(view.take(), ElementsAre("insert section 1", "move 0.1 to 0.0", "move 0.2 to 0.1", "move 0.2 to 1.0"))
        << "an edited row goes to its place";
    remove("b");
    EXPECT_THAT(view.take(), ElementsAre("delete 0.1"));
    EXPECT_THAT(rows(list().table()), ElementsAre("[March 2026]", "c", "[April 2026]", "a", "[2027]", "d"));
}

TEST_F(EventList, SaysThatChangesAreNotSaved) {
    start();
    const auto noticeOf = [this](const Error& error) {
        tellFailedSave(*environment, nullptr, error);
        return shell.notice.text;
    };
    const auto file = [](int code, const char* reason) { return Error{"file", code, {{"reason", reason}}}; };
    EXPECT_EQ(noticeOf(file(ENOSPC, "No space left on device")), "Changes are not saved: there is no space left");
    EXPECT_EQ(noticeOf(file(EMLINK, "Too many links")), "Changes are not saved: Too many links")
        << "in the system's words where there are none of our own";
    const Error archive{"archive", ENOSPC, {}};
    EXPECT_EQ(noticeOf(archive), "Changes are not saved: " + archive.description()) << "only a file's code is an errno";
}

TEST_F(EventList, SaysInTheUsersLanguageWhyChangesAreNotSaved) {
    const TestEnvironment russian({.locale = "ru_RU"});
    for (const int code :
         {ENOSPC, EDQUOT, EACCES, EPERM, EROFS, EIO, ENOENT, ENOTDIR, ENODEV, ENXIO, ENOTCONN, ESTALE}) {
        const std::string text = failedSaveText(
            {DidFailToSaveNotification, nullptr, {{FailedSaveCodeKey, code}, {FailedSaveReasonKey, "English"}}});
        EXPECT_TRUE(text.starts_with("Изменения не сохранены: ")) << text;
        EXPECT_TRUE(std::ranges::none_of(text, [](unsigned char c) { return std::isalpha(c) != 0; })) << text;
    }
}

TEST_F(EventList, ManyChangesAtOnceAreOneReload) {
    std::vector<std::string> planned;
    EventScreensServices services;
    services.updateNotifications = [&](const std::string& key) { planned.push_back(key); };
    services.removeNotifications = [&](const std::string& key) { planned.push_back("-" + key); };
    start(kWide, services);
    std::vector<std::shared_ptr<HHEvent>> many;
    for (int count = 0; count < 60; ++count) many.push_back(makeEvent(environment, {std::to_string(count)}));
    EventLocalStore::shared().updateEvents(many);
    EXPECT_THAT(view.take(), IsEmpty());
    settle();
    EXPECT_THAT(view.take(), ElementsAre("reload"));
    EXPECT_TRUE(list().selectedEventKey());
    EventLocalStore::shared().removeAllEvents();
    settle();
    EXPECT_EQ(list().selectedEventKey(), std::nullopt);
    EXPECT_EQ(planned.size(), 120U) << "alerts follow every change";
}

TEST_F(EventList, SearchesNamesAndNotesWhileTheListRests) {
    store({"a", "2026-03-20", "Party"});
    store({"b", "2026-03-25"})->setNote("party hats");
    store({"c", "2026-03-21", "Work"});
    start();
    list().beginSearch();
    EXPECT_EQ(list().emptyAdvice()->title, "Search");
    list().setSearchText("PARTY");
    EXPECT_THAT(rows(list().activeTable()), ElementsAre("[March 2026]", "a", "b"));
    found.take();
    store({"d", "2026-03-30", "Another party"});
    store({"e", "2026-03-30", "No match"});
    store({"a", "2026-03-20", "Renamed"});
    remove("b");
    EXPECT_THAT(found.take(), ElementsAre("insert 0.2", "reload 0.0", "delete 0.1"));
    EXPECT_THAT(view.take(), IsEmpty());
    list().setSearchText("nothing like that");
    EXPECT_THAT(list().emptyAdvice()->text, ::testing::HasSubstr("nothing like that"));
    list().endSearch();
    EXPECT_THAT(view.take(), ElementsAre("reload"));
    EXPECT_THAT(rows(list().activeTable()), ElementsAre("[March 2026]", "a", "c", "d", "e"));
}

TEST_F(EventList, TheEndOfASearchSelectsAgain) {
    store({"a", "2026-03-20", "Party"});
    store({"b", "2026-03-25", "Work"});
    start(kWide);
    list().setSearchText("party");
    remove("a");
    EXPECT_EQ(list().selectedEventKey(), std::nullopt) << "nothing that was found is left";
    list().endSearch();
    EXPECT_EQ(list().selectedEventKey(), "b");
}

TEST_F(EventList, TheOrderMadeByHandBeginsWithTheOneInSight) {
    store({"a", "2026-05-20", "Late"});
    store({"b", "2026-03-20", "Soon"});
    store({"c", "2026-04-20", "Between"});
    sortBy(EventSortType::byDate);
    start();
    sortBy(EventSortType::byCustom);
    EXPECT_THAT(rows(list().table()), ElementsAre("b", "c", "a"));
    EXPECT_EQ(AppSettings::tableSortIdentifiers(), (std::vector<std::string>{"b", "c", "a"})) << "for the next start";
    ASSERT_TRUE(list().moveRow({0, 2}, EventListViewController::Step::up));
    sortBy(EventSortType::byName);
    EXPECT_THAT(rows(list().table()), ElementsAre("c", "a", "b"));
    sortBy(EventSortType::byCustom);
    EXPECT_THAT(rows(list().table()), ElementsAre("b", "a", "c")) << "the user's own stands";
}

TEST_F(EventList, ARemovedEventComesBackAsItWas) {
    for (const char* key : {"a", "b", "c"}) store({key, "2026-03-20", key});
    auto picture = store({"b", "2026-03-20", "Picture"});
    const Data jpeg = *Image(2, 1, {255, 0, 0, 255, 0, 0, 255, 255}).jpegData(0.6);
    picture->setBackground(std::make_shared<ImageEventBackgroundPicture>(
        std::make_shared<const Image>(*Image::decode(jpeg)), std::nullopt, jpeg));
    EventLocalStore::shared().updateEvent(picture);
    ASSERT_TRUE(EventLocalStore::shared().flush());
    EventLocalStore::shared().initialize();  // the picture is in the package alone
    AppSettings::setTableSortIdentifiers({"c", "b", "a"});
    sortBy(EventSortType::byCustom);
    start(kWide);

    list().deleteRow({0, 1});
    EXPECT_THAT(view.take(), ElementsAre("delete 0.1"));
    ASSERT_TRUE(EventLocalStore::shared().flush());
    const std::string package = joinPath(EventLocalStore::shared().directory(), "b.evn");
    EXPECT_FALSE(environment->files().exists(package)) << "the removal does not wait for the undo's end";
    EXPECT_EQ(shell.notice.text, "Deleted \"Picture\"");
    shell.notice.action();
    EXPECT_THAT(rows(list().table()), ElementsAre("c", "b", "a"));
    EXPECT_EQ(list().selectedEventKey(), "b");
    ASSERT_TRUE(EventLocalStore::shared().flush());
    EXPECT_EQ(*environment->files().readFile(joinPath(package, "background.i")), jpeg);
    EXPECT_FALSE(list().undoDeletion()) << "once is enough";

    list().deleteRow({0, 0});
    environment.clock->advance(TimeInterval(3));
    list().deleteRow({0, 0});
    shell.notice.action();
    EXPECT_EQ(shell.notice.text, "Deleted \"c\"") << "the one before is offered next";
    EXPECT_EQ(shell.notice.shownFor, RemovedEvents::kTime - TimeInterval(4));
    shell.notice.action();
    EXPECT_THAT(rows(list().table()), ElementsAre("c", "b", "a"));
    list().deleteRow({0, 0});
    second(9);
    EXPECT_FALSE(list().canUndoDeletion());
    EXPECT_FALSE(list().undoDeletion());
    list().deleteRow({3, 7});
    EXPECT_EQ(EventLocalStore::shared().itemsCount(), 2U);
}

TEST_F(EventList, SelectsWhatIsThereBesideADetailPane) {
    store({"a", "2026-03-20", "A"});
    store({"b", "2026-03-25", "B"});
    start(kWide);
    EXPECT_EQ(list().selectedEventKey(), "a");
    EXPECT_EQ(split->detail()->eventIdentifier(), "a");
    list().selectRow({0, 1});
    EXPECT_EQ(list().selectedPath(), (IndexPath{0, 1}));
    EXPECT_EQ(split->detail()->eventView().nameLabel(), "B");
    NotificationRecorder reports(*environment, {EventListSelectEventKeyNotification});
    list().selectRow({0, 1});
    EXPECT_THAT(reports.take(), IsEmpty());
    remove("b");
    EXPECT_EQ(reports.take().size(), 2U) << "cleared, and the first row selected";
    EXPECT_EQ(list().selectedEventKey(), "a");
    remove("a");
    EXPECT_EQ(list().selectedEventKey(), std::nullopt);
    EXPECT_FALSE(split->detail()->hasContent());
    EXPECT_THAT(list().emptyAdvice()->title, "No events");
}

TEST_F(EventList, TheDetailFollowsTheWindowsWidth) {
    store({"a", "2026-03-20", "A"});
    store({"b", "2026-03-25", "B"});
    start();
    EXPECT_EQ(list().selectedEventKey(), std::nullopt);
    list().selectRow({0, 1});
    ASSERT_TRUE(topDetail());
    EXPECT_EQ(list().selectedPath(), std::nullopt);
    split->setWindowWidth(kWide);
    EXPECT_EQ(list().selectedEventKey(), "b");
    EXPECT_EQ(split->detail()->eventIdentifier(), "b");
    list().selectRow({0, 0});
    split->setWindowWidth(kNarrow);
    ASSERT_TRUE(topDetail());
    EXPECT_EQ(topDetail()->eventIdentifier(), "a");
    list().presentDetailsForEventAtIdentifier("b");
    EXPECT_EQ(topDetail()->eventIdentifier(), "b") << "in place of the one that is there";
    list().presentDetailsForEventAtIdentifier("unknown");
    shell.back();
    split->setWindowWidth(kWide);
    EXPECT_EQ(split->detail()->eventIdentifier(), "b");
    EventLocalStore::shared().removeAllEvents();
    split->setWindowWidth(kNarrow);
    store({"c", "2026-03-25", "C"});
    list().selectRow({0, 0});
    ASSERT_TRUE(topDetail()) << "not in the pane that nobody sees";
    EXPECT_EQ(shell.navigation.screens(StackId::root).size(), 2U);
}

TEST_F(EventList, FollowsTheChosenOrderAndMovesRowsByHand) {
    for (const char* key : {"a", "b", "c"}) store({key, std::string(key) == "b" ? "2026-03-15" : "2026-04-01", key});
    AppSettings::setTableSortIdentifiers({"a", "b", "c"});
    start();
    EXPECT_FALSE(list().moveRow({0, 0}, EventListViewController::Step::down));
    sortBy(EventSortType::byName);
    EXPECT_THAT(rows(list().table()), ElementsAre("a", "b", "c"));
    shell.press(BarButton::Role::sort);
    shell.tap("choice2");
    shell.back();
    EXPECT_THAT(view.take(), ElementsAre("reload", "reload"));
    EXPECT_TRUE(list().moveRow({0, 0}, EventListViewController::Step::down));
    EXPECT_THAT(view.take(), ElementsAre("move 0.0 to 0.1"));
    list().didMoveRow({0, 2}, {0, 0});
    EXPECT_THAT(view.take(), IsEmpty()) << "the view has moved it";
    EXPECT_THAT(AppSettings::tableSortIdentifiers(), ElementsAre("c", "b", "a"));
    EXPECT_FALSE(list().moveRow({0, 0}, EventListViewController::Step::up));
    EXPECT_FALSE(list().moveRow({0, 2}, EventListViewController::Step::down));

    list().setSearchText("a");
    EXPECT_FALSE(list().activeTable().canMoveRow({0, 0}));
    store({"a", "2026-04-01", "aa"});
    EXPECT_THAT(AppSettings::tableSortIdentifiers(), ElementsAre("c", "b", "a"))
        << "what was found says nothing about the order of all";
}

TEST_F(EventList, AClockThatIsSetBackBringsEventsBack) {
    store({"a", "2026-03-20", "Party"})->setRrule("FREQ=YEARLY;INTERVAL=1");
    start();
    constexpr TimeInterval kMonth(31 * 86400);
    environment.clock->advance(kMonth);
    second();
    settle();
    ASSERT_EQ(EventLocalStore::shared().eventByIdentifier("a")->nextDate(), environment.at("2027-03-20"));
    list().addAction();
    environment.clock->advance(-kMonth);
    second();
    settle();
    EXPECT_THAT(rows(list().table()), ElementsAre("[March 2026]", "a"));
}

TEST_F(EventList, TheTickWritesVisibleRowsAndMovesNone) {
    auto soon = store({"a", "2026-03-10T12:01:00", "Soon"});
    soon->intervalFormat().units = CalendarUnit::second;
    store({"b", "2026-03-10T12:02:00", "Later"});
    start();
    const auto cell = list().table().showRow({0, 0}, kRow);
    environment.queues->runAll();
    view.take();
    second();
    EXPECT_EQ(cell->text().interval, "59 Seconds");
    EXPECT_THAT(view.take(), ElementsAre("refresh 0.0")) << "the other row is out of sight";
    second(60 + 60 * 60);
    EXPECT_THAT(rows(list().table()), ElementsAre(::testing::_, "a", "b"));
    list().addAction();
    view.take();
    second();
    EXPECT_THAT(view.take(), IsEmpty()) << "a list that is covered does no work";
    shell.press(BarButton::Role::cancel);
    EXPECT_THAT(view.take(), ElementsAre("refresh 0.0")) << "back in sight it is of now";
    list().table().hideRow("a");
    second();
    EXPECT_THAT(view.take(), IsEmpty());
    environment.clock->advance(TimeInterval(86400));
    second();
    settle();
    EXPECT_THAT(rows(list().table()), ElementsAre("[Passed]", "b", "a")) << "another day sorts the list";
    EXPECT_THAT(view.take(), Contains("reload section 0")) << "a header may name the day";
}

TEST_F(EventList, PicturesOfARowArriveLate) {
    auto event = store({"a", "2026-03-20", "A"});
    event->setIcon(std::make_shared<NamedEventIconPicture>("remind"));
    event->appearance().textColor = Color::white();
    start();
    const auto cell = list().table().showRow({0, 0}, kRow);
    EXPECT_EQ(cell->icon(), nullptr);
    EXPECT_EQ(cell->background().image, nullptr);
    EXPECT_GT(cell->background().scrim.alpha, 0.3) << "readable on any picture until it is there";
    environment.queues->runAll();
    ASSERT_TRUE(cell->icon() && cell->background().image);
    EXPECT_THAT(view.take(), Contains("refresh 0.0"));
    EXPECT_EQ(accessibleSentence(cell->content()), "A, Friday, March 20, 10 Days");

    AppSettings::setTableCellIconShow(false);
    auto category = CategoryLocalStore::shared().defaultCategory();
    category->eventFont = "Georgia";
    CategoryLocalStore::shared().updateCategory(category, CategoryLocalStore::Initialize::no);
    settle();
    EXPECT_EQ(cell->content().fontName, "Georgia");
    EXPECT_EQ(cell->icon(), nullptr);

    MissedEventsHelper::setMissedEvents({"a"});
    view.offset = -200;
    list().scrollViewDidEndDragging(true);
    EXPECT_FALSE(MissedEventsHelper::isMissed("a"));
}

TEST_F(EventList, WhatIsMissedHasItsSectionAsSoonAsItIsFound) {
    store({"a", "2026-03-20", "A"});
    store({"b", "2026-03-01", "B"});
    start();
    EXPECT_THAT(rows(list().table()), ElementsAre("[March 2026]", "a", "[Passed]", "b"));
    MissedEventsHelper::setMissedEvents({"b"});
    settle();
    EXPECT_THAT(rows(list().table()), ElementsAre("[Missed]", "b", "[March 2026]", "a"));
    view.offset = -200;
    list().scrollViewDidEndDragging(true);
    EXPECT_THAT(rows(list().table()), ElementsAre("[March 2026]", "a", "[Passed]", "b"));
}

TEST_F(EventList, EditingReplacesTheBarAndEndsTheSearch) {
    store({"a", "2026-03-20", "A"});
    start();
    list().setSearchText("A");
    shell.press(BarButton::Role::edit);
    EXPECT_FALSE(list().isSearching());
    EXPECT_FALSE(list().isSearchBarEnabled());
    EXPECT_FALSE(list().press(BarButton::Role::add));
    list().beginSearch();
    EXPECT_FALSE(list().isSearching());
    shell.back();
    EXPECT_TRUE(list().isSearchBarEnabled());
    EXPECT_FALSE(shell.navigation.goBack());
    shell.press(BarButton::Role::info);
    EXPECT_THAT(shell.take(), ElementsAre("present Settings"));
}

TEST_F(EventList, OpensWhatTheEditorHasMadeAndTellsItsAppearances) {
    int launches = 0;
    EventScreensServices services;
    services.handleFirstLaunch = [&] { ++launches; };
    EventListPresenting* appeared = nullptr;
    const auto observation = environment->notifications().addObserver(
        EventListDidAppearNotification,
        [&](const Notification& notification) { appeared = EventListPresenting::listOf(notification); });
    start(kNarrow, services);
    EXPECT_EQ(appeared, &list());
    EXPECT_EQ(launches, 1);
    shell.press(BarButton::Role::add);
    const std::string key = shell.top<EventEditViewController>().event()->identifier();
    shell.press(BarButton::Role::done);
    ASSERT_TRUE(topDetail());
    EXPECT_EQ(topDetail()->eventIdentifier(), key);
    shell.back();
    EXPECT_EQ(launches, 2);
}

TEST_F(EventList, HearsOtherThreadsOnTheMainOne) {
    store({"a", "2026-03-20", "A"});
    start();
    std::thread([&] {
        const EnvironmentScope scope(environment.environment.get());
        EventLocalStore::shared().updateEvent(makeEvent(environment, {"b", "2026-03-25", "B"}));
    }).join();
    EXPECT_THAT(view.take(), IsEmpty());
    environment.queues->runAll();
    EXPECT_THAT(view.take(), ElementsAre("insert 0.1"));
}

TEST_F(EventList, TheTitleCountsTheFirstDownload) {
    store({"a", "2026-03-20", "A"});
    start();
    const auto info = std::make_shared<CCUbiquityKeyStoreProgressInfo>();
    info->itemsCount = 40;
    const auto post = [&](const char* name, const void* sender) {
        environment->notifications().post(name, sender, {{CCUbiquityKeyStoreProgressInfoKey, info}});
    };
    const int events = 0;
    const int categories = 0;
    post(CCUbiquityKeyStoreStartDownloadingNotification, &events);
    EXPECT_EQ(list().progressText(), "1 / 41");
    info->downloadedCount = 12;
    post(CCUbiquityKeyStoreProgressDownloadingNotification, &events);
    post(CCUbiquityKeyStoreFinishDownloadingNotification, &categories);
    EXPECT_EQ(list().progressText(), "13 / 41");
    remove("a");
    EXPECT_EQ(list().emptyAdvice()->title, "Just a moment");
    post(CCUbiquityKeyStoreFinishDownloadingNotification, &events);
    EXPECT_EQ(list().progressText(), std::nullopt);
    post(CCUbiquityKeyStoreProgressDownloadingNotification, &events);
    EXPECT_EQ(list().progressText(), std::nullopt) << "only the first one";
}

}  // namespace
}  // namespace dayward

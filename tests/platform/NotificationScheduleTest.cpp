#include "platform/NotificationSchedule.h"

#include <gmock/gmock.h>

#include <algorithm>
#include <cmath>
#include <string>

#include "platform/Archivable.h"
#include "platform/KeyedArchiver.h"
#include "platform/LocalNotifications.h"
#include "support/FaultFileSystem.h"

namespace dayward {
namespace {

using Content = NotificationSchedule::Content;

constexpr const char* kDirectory = "/state";
constexpr const char* kFile = "/state/notifications.schedule";
constexpr const char* kCopy = "/state/notifications.schedule.copy";

LocalNotification at(double seconds, const std::string& body = "body") {
    LocalNotification notification;
    notification.fireDate = Date::sinceReference(seconds);
    notification.alertBody = body;
    return notification;
}

class NotificationScheduleTest : public testing::Test {
protected:
    NotificationScheduleTest() { EXPECT_TRUE(files->createDirectories(kDirectory)); }

    NotificationSchedule schedule() const { return {files, classes, kDirectory}; }
    void add(const LocalNotification& notification) {
        ASSERT_TRUE(schedule().change([&](Content& content) { content.schedule(notification); }));
    }
    std::vector<double> dates() const {
        std::vector<double> found;
        const auto content = schedule().read();
        for (const LocalNotification& one : content->scheduled)
            found.push_back(one.fireDate->secondsSinceReference());
        return found;
    }

    const std::shared_ptr<FaultFileSystem> files = std::make_shared<FaultFileSystem>();
    const std::shared_ptr<const ArchiveClasses> classes = std::make_shared<ArchiveClasses>();
};

TEST_F(NotificationScheduleTest, KeepsEveryFieldForTheNextProcess) {
    LocalNotification whole = at(800000000.123456, "Ünïcode is happening!");
    whole.timeZone = "Europe/Moscow";
    whole.alertAction = "Show";
    whole.soundName = "Harp.wav";
    whole.applicationIconBadgeNumber = 3;
    whole.userInfo = {{"objectKey", "key"}, {"list", Array{1, 2.5, "x"}}};
    Content wanted;
    wanted.scheduled = {whole, LocalNotification()};
    wanted.snoozed = {at(5)};
    wanted.withdrawn = {at(6)};
    wanted.badgeNumber = 12;
    ASSERT_TRUE(schedule().change([&](Content& content) { content = wanted; }));
    EXPECT_TRUE(schedule().read() == wanted);
}

TEST_F(NotificationScheduleTest, RefusesTheLatestBeyondTheLimitWithSnoozedOnesWithin) {
    ASSERT_TRUE(schedule().change([&](Content& content) {
        for (int i = 100; i > 0; --i) content.schedule(at(i));
    }));
    EXPECT_EQ(dates().size(), LocalNotifications::kMaximumCount);
    EXPECT_EQ(dates().back(), 64);
    ASSERT_TRUE(schedule().change([&](Content& content) { content.snoozed = {at(500), at(501)}; }));
    EXPECT_EQ(dates().back(), 62);
    EXPECT_EQ(schedule().read()->snoozed.size(), 2U);
}

TEST_F(NotificationScheduleTest, RemembersWhatWasCancelledTooLate) {
    add(at(1));
    ASSERT_TRUE(schedule().change([&](Content& content) {
        content.cancel(at(1));
        content.cancel(at(2));
    }));
    EXPECT_THAT(dates(), testing::IsEmpty());
    EXPECT_THAT(schedule().read()->withdrawn, testing::SizeIs(1));
    EXPECT_TRUE(schedule().read()->withdrawn.front() == at(2));
}

TEST_F(NotificationScheduleTest, WritesNothingWhereNothingChanges) {
    add(at(1));
    const auto before = files->tree(kDirectory);
    const std::size_t written = std::ranges::count(files->operations(), "rename");
    add(at(1));
    EXPECT_EQ(std::ranges::count(files->operations(), "rename"), static_cast<std::ptrdiff_t>(written));
    EXPECT_EQ(files->tree(kDirectory), before);
}

TEST_F(NotificationScheduleTest, LivesOnItsCopyWhereTheFileIsDamagedOrGone) {
    for (const bool isRemoved : {false, true}) {
        add(at(1));
        if (isRemoved) {
            ASSERT_TRUE(files->removeFile(kFile));
        } else {
            files->store(kFile, Data{'b', 'p', 'l', 'i', 's', 't', '0', '0', 1});
        }
        EXPECT_EQ(dates(), std::vector<double>{1});
        EXPECT_TRUE(schedule().read()->needsRebuild);
        ASSERT_TRUE(schedule().change([](Content& content) { content.needsRebuild = false; }));
        EXPECT_FALSE(schedule().read()->needsRebuild);
        EXPECT_EQ(dates(), std::vector<double>{1});
    }
    EXPECT_TRUE(files->tree(kDirectory).contains("notifications.schedule.unreadable"));
}

TEST_F(NotificationScheduleTest, LivesOnItsCopyWhereANotificationCannotBeRead) {
    const Object never = Dictionary{{"fireDate", Date::sinceReference(std::nan(""))}};
    for (const Object& list : {Object("none"), Object(Array{7}), Object(Array{Dictionary(), never})}) {
        add(at(1));
        files->store(kFile, KeyedArchiver::archivedDataWithRootObject(Dictionary{{"version", 1}, {"scheduled", list}}));
        EXPECT_EQ(dates(), std::vector<double>{1});
        EXPECT_TRUE(schedule().read()->needsRebuild);
    }
}

TEST_F(NotificationScheduleTest, StaysToBeRebuiltWhereTheCopyIsDamagedToo) {
    files->store(kFile, Data{1, 2, 3});
    files->store(kCopy, Data{});
    EXPECT_TRUE(schedule().read()->needsRebuild);
    add(at(2));
    EXPECT_TRUE(schedule().read()->needsRebuild);
    EXPECT_EQ(dates(), std::vector<double>{2});
}

TEST_F(NotificationScheduleTest, ADeviceThatCannotBeReadForAMomentDamagesNothing) {
    add(at(1));
    for (std::size_t operation = 1; operation <= 4; ++operation) {
        files->failOperation(operation);
        (void)schedule().change([](Content& content) { content.badgeNumber += 1; });
        files->heal();
        EXPECT_EQ(dates(), std::vector<double>{1}) << operation;
        EXPECT_FALSE(schedule().read()->needsRebuild) << operation;
    }
}

TEST_F(NotificationScheduleTest, IsReadFromItsCopyWhereTheDeviceCannotReadTheFile) {
    add(at(1));
    const auto makeUnreadable = [&](const std::string& path) {
        (void)files->removeFile(path);
        files->store(path + "/inside", Data{});
    };
    makeUnreadable(kFile);
    NotificationSchedule patient = schedule();
    const auto empty = [](Content& content) { content.scheduled.clear(); };
    EXPECT_EQ(dates(), std::vector<double>{1});
    EXPECT_FALSE(patient.read()->needsRebuild);
    EXPECT_FALSE(patient.change(empty)) << "it may be readable later";
    patient.takeUnreadForDamaged();
    EXPECT_TRUE(patient.change([](Content& content) { content.badgeNumber = 1; }));
    EXPECT_EQ(dates(), std::vector<double>{1});
    EXPECT_TRUE(schedule().read()->needsRebuild);
    for (const char* path : {kFile, kCopy}) makeUnreadable(path);
    EXPECT_FALSE(patient.read());
    EXPECT_FALSE(patient.change(empty));
    EXPECT_TRUE(files->tree(kDirectory).contains("notifications.schedule.unreadable/inside"));
}

TEST_F(NotificationScheduleTest, IsOldOrNewAfterACrashOrAFullDiskAtAnyOperation) {
    using Loss = FaultFileSystem::CrashLoss;
    for (const Loss loss : {Loss::nothing, Loss::allUnsynced, Loss::unsyncedContents, Loss::byChance}) {
        for (const bool isFull : {false, true}) {
            bool wasDone = false;
            for (std::size_t operation = 1; !wasDone || operation < 30; ++operation) {
                ASSERT_LT(operation, 100U);
                ASSERT_TRUE(schedule().change([](Content& content) {
                    content = {};
                    content.schedule(at(1));
                }));
                isFull ? files->fillDiskAt(operation) : files->crashAt(operation);
                wasDone = schedule().change([](Content& content) { content.schedule(at(2)); }).has_value();
                files->restart(loss, static_cast<std::uint32_t>(operation));
                if (wasDone) {
                    EXPECT_EQ(dates(), (std::vector<double>{1, 2})) << operation;
                } else {
                    EXPECT_THAT(dates(), testing::AnyOf(std::vector<double>{1}, std::vector<double>{1, 2}))
                        << operation;
                }
                EXPECT_FALSE(schedule().read()->needsRebuild) << operation;
            }
        }
    }
}

}  // namespace
}  // namespace dayward

#include "alerts/WidgetEvent.h"

#include <gtest/gtest.h>

#include <random>

#include "Classes/App/ArchiveRegistration.h"
#include "Classes/Category/ImageEventIconPicture.h"
#include "Classes/Category/NamedEventIconPicture.h"
#include "Classes/Event/EventLocalStore.h"
#include "Classes/Event/HHEvent.h"
#include "alerts/AppWidget.h"
#include "alerts/WidgetExport.h"
#include "platform/FileSystem.h"
#include "platform/ImageImport.h"
#include "platform/KeyedArchiver.h"
#include "platform/KeyedUnarchiver.h"
#include "platform/UserDefaults.h"
#include "support/GalleryResources.h"

namespace dayward {
namespace {

constexpr std::uint32_t kSeed = 20260310;

class Random {
public:
    std::int64_t whole(std::int64_t least, std::int64_t most) {
        return std::uniform_int_distribution<std::int64_t>(least, most)(random_);
    }
    template <class T, std::size_t N>
    const T& oneOf(const T (&values)[N]) {
        return values[whole(0, N - 1)];
    }

private:
    std::mt19937 random_{kSeed};
};

std::shared_ptr<HHEvent> randomEvent(Random& random) {
    static constexpr const char* kRules[] = {"",
                                             "FREQ=YEARLY;INTERVAL=1",
                                             "FREQ=YEARLY;INTERVAL=2",
                                             "FREQ=MONTHLY;INTERVAL=1;BYMONTHDAY=31",
                                             "FREQ=WEEKLY;INTERVAL=1;BYDAY=MO,SU",
                                             "FREQ=DAILY;INTERVAL=3;COUNT=40",
                                             "FREQ=HOURLY;INTERVAL=5",
                                             "FREQ=NO",
                                             "broken"};
    static constexpr double kHours[] = {0, 0, 0.5, 2, 30, 400};
    auto event = std::make_shared<HHEvent>();
    if (random.whole(0, 9) > 0) event->setName("Name");
    event->setDate(Date::sinceReference(static_cast<double>(random.whole(400'000'000, 1'200'000'000))));
    std::vector<std::int64_t> times;
    for (auto left = random.whole(0, 3); left > 0; --left) times.push_back(random.whole(0, 1439));
    event->setTimes(times);
    if (const std::string rule = random.oneOf(kRules); !rule.empty()) event->setRrule(rule);
    if (const double hours = random.oneOf(kHours); hours > 0)
        event->setDuration(XDIDateInterval(CalendarUnit::hour, hours));
    event->setShowAge(random.whole(0, 1) == 1);
    event->setIntervalFormat({CalendarUnits::fromMask(static_cast<std::uint64_t>(random.whole(1, 65535))),
                              static_cast<TextStyle>(random.whole(0, 3))});
    return event;
}

/// The copies as the widget's process reads them.
std::vector<std::shared_ptr<WidgetEvent>> exported() {
    WidgetExport().exportEvents();
    return AppWidget::events();
}

TEST(WidgetEventAgainstHHEvent, GivesTheSameDatesAndTextsForTheSameRecord) {
    Random random;
    const GalleryResources resources;
    for (const char* zone : {"UTC", "Europe/Berlin", "America/New_York", "Australia/Lord_Howe", "Asia/Kathmandu"}) {
        TestEnvironment::Options options = resources.options();
        options.zone = zone;
        const TestEnvironment environment(options);
        std::vector<std::shared_ptr<HHEvent>> events;
        for (int i = 0; i < 100; ++i) events.push_back(randomEvent(random));
        EventLocalStore::shared().updateEvents(events);
        const auto copies = exported();
        ASSERT_EQ(copies.size(), events.size());
        Date now = environment.at("2024-01-01");
        for (int moment = 0; moment < 12; ++moment) {
            now = now + TimeInterval(static_cast<double>(random.whole(1, 40'000'000)));
            environment.clock->set(now);
            for (const auto& copy : copies) {
                const auto event = EventLocalStore::shared().eventByIdentifier(copy->key());
                const auto next = event->nextDate();
                SCOPED_TRACE(std::string(zone) + " seed " + std::to_string(kSeed) + " " + environment.text(now) + " " +
                             event->rrule().value_or("-"));
                ASSERT_EQ(copy->nextDate(), next);
                ASSERT_EQ(copy->isComing(), event->isComing());
                ASSERT_EQ(copy->titleToDate(next), event->titleToDate(next));
                ASSERT_EQ(copy->countdownToDate(next), event->intervalFormat().countdownToDate(next));
            }
        }
    }
}

class WidgetTest : public ::testing::Test {
protected:
    std::shared_ptr<HHEvent> add(const std::string& identifier) {
        auto event = std::make_shared<HHEvent>(identifier);
        event->setName(identifier);
        EventLocalStore::shared().updateEvent(event);
        return event;
    }
    std::vector<std::string> exportedKeys() {
        std::vector<std::string> keys;
        for (const auto& event : exported()) keys.push_back(event->key());
        return keys;
    }

    GalleryResources resources;
    TestEnvironment environment{resources.options()};
};

TEST_F(WidgetTest, FieldsWithoutValuesAreNotWrittenAndMissingOnesHaveTheirDefaults) {
    const auto bare = std::make_shared<WidgetEvent>("bare");
    const Data data = KeyedArchiver::archivedDataWithRootObject(Object(std::shared_ptr<Archivable>(bare)));
    const std::string bytes(reinterpret_cast<const char*>(data.data()), data.size());
    for (const char* key : {"p001", "p004", "p005", "p007", "p008", "p009", "c010"}) {
        EXPECT_NE(bytes.find(key), std::string::npos) << key;
    }
    for (const char* key : {"p002", "p003", "p006"}) EXPECT_EQ(bytes.find(key), std::string::npos) << key;
    const auto read = KeyedUnarchiver::unarchiveObjectWithData(data)->as<WidgetEvent>();
    ASSERT_TRUE(read);
    EXPECT_TRUE(read->isEqual(*bare));
    EXPECT_FALSE(read->icon);
    EXPECT_EQ(read->times(), std::vector<std::int64_t>{0});
}

TEST_F(WidgetTest, AChoiceOfAnotherTypeReadsAsNoneAndABrokenCopyAsEmpty) {
    UserDefaults& defaults = environment->groupDefaults();
    EXPECT_EQ(AppWidget::type(), WidgetType::todaysEvents);
    EXPECT_EQ(AppWidget::eventsKeys(), std::nullopt);
    defaults.setObject("no array", AppWidget::kEventsKeysKey);
    defaults.setObject(7, AppWidget::kTypeKey);
    defaults.setObject(Data{1, 2, 3}, AppWidget::kEventsKey);
    EXPECT_EQ(AppWidget::eventsKeys(), std::nullopt);
    EXPECT_EQ(AppWidget::type(), WidgetType::todaysEvents);
    EXPECT_TRUE(AppWidget::events().empty());
    EXPECT_EQ(environment.log->errors().size(), 1U);
}

TEST_F(WidgetTest, SelectedEventsGoOutInTheirOrderWithoutThoseThatWereRemoved) {
    EventLocalStore::shared().removeAllEvents();
    for (const char* name : {"a", "b", "c"}) add(name);
    EXPECT_EQ(exportedKeys(), (std::vector<std::string>{"a", "b", "c"}));
    AppWidget::setEventsKeys({"c", "gone", "a"});
    EXPECT_EQ(exportedKeys().size(), 3U) << "today's events";
    AppWidget::setType(WidgetType::selectedEvents);
    EXPECT_EQ(exportedKeys(), (std::vector<std::string>{"c", "a"}));
    EXPECT_TRUE(AppWidget::events().front()->icon) << "the category's icon";
}

TEST_F(WidgetTest, EveryEventHasItsIconAndEqualOnesAreWrittenOnce) {
    constexpr int kSide = WidgetExport::kIconSize;
    Random random;
    Data noise(std::size_t{kSide} * kSide * 4);
    for (auto& byte : noise) byte = static_cast<std::uint8_t>(random.whole(0, 255));
    const std::size_t iconSize = Image(kSide, kSide, noise).pngData()->size();
    ASSERT_GT(iconSize, 10'000U);
    std::vector<std::shared_ptr<HHEvent>> events;
    for (int i = 0; i < 300; ++i) {
        events.push_back(std::make_shared<HHEvent>());
        if (i % 3 == 0) events.back()->setIcon(std::make_shared<NamedEventIconPicture>("heart4.png"));
        if (i % 3 == 1)
            events.back()->setIcon(std::make_shared<ImageEventIconPicture>(std::make_shared<Image>(kSide, kSide, noise)));
    }
    EventLocalStore::shared().updateEvents(events);
    const auto copies = exported();
    ASSERT_EQ(copies.size(), events.size());
    for (const auto& copy : copies) {
        const auto image = EventLocalStore::shared().eventByIdentifier(copy->key())->displayIcon()->getImage();
        ASSERT_TRUE(copy->icon);
        const auto shown = Image::decodePNG(*copy->icon);
        ASSERT_TRUE(shown);
        EXPECT_EQ(*shown, scaledToFit(*image, kSide));
    }
    const auto file = environment->files().status(joinPath(environment->paths().group, "group.defaults"));
    EXPECT_LT((*file)->size, 10 * iconSize);
}

TEST_F(WidgetTest, ACopyThatHasNotChangedIsNotWritten) {
    add("a");
    WidgetExport().exportEvents();
    const std::string file = joinPath(environment->paths().group, "group.defaults");
    const auto written = environment->files().status(file);
    ASSERT_TRUE(written && *written);
    WidgetExport().exportEvents();
    EXPECT_EQ((*environment->files().status(file))->inode, (*written)->inode);
    add("b");
    WidgetExport().exportEvents();
    EXPECT_NE((*environment->files().status(file))->inode, (*written)->inode);
}

TEST_F(WidgetTest, TheCopyFollowsChangesOfEventsAndOfTheChoice) {
    WidgetExport service;
    service.follow();
    add("a");
    EXPECT_TRUE(AppWidget::events().empty());
    environment.queues->advance(WidgetExport::kDelay);
    EXPECT_EQ(AppWidget::events().size(), 1U);
    AppWidget::setType(WidgetType::selectedEvents);
    environment.queues->advance(WidgetExport::kDelay);
    EXPECT_TRUE(AppWidget::events().empty());
}

}  // namespace
}  // namespace dayward

#include "Classes/Settings/AppSettings.h"

#include <gmock/gmock.h>

#include <thread>

#include "Submodules/CorpLibrary2/App/Analytics.h"
#include "intervals/IntervalClasses.h"
#include "platform/KeyedUnarchiver.h"
#include "platform/NotificationCenter.h"
#include "platform/UserDefaults.h"
#include "platform/linux/LinuxFileSystem.h"
#include "support/FaultFileSystem.h"
#include "support/TestEnvironment.h"
#include "support/TestPaths.h"

namespace dayward {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class ReporterSpy final : public AnalyticsReporter {
public:
    void report(const std::string& category, const std::string& action, const Dictionary& parameters) override {
        EXPECT_EQ(category + " " + action, "default set");
        names.push_back(*parameters.at("property_name").string());
        values[names.back()] = parameters.at("property_value");
    }
    std::vector<std::string> names;
    Dictionary values;
};

class AppSettingsTest : public testing::Test {
protected:
    AppSettingsTest() { restart(); }

    static TestEnvironment::Options withClasses() {
        auto classes = std::make_shared<ArchiveClasses>();
        registerIntervalClasses(*classes);
        registerDateFormatClasses(*classes);
        registerColorClass(*classes);
        TestEnvironment::Options options;
        options.archiveClasses = classes;
        return options;
    }
    /// The next start of the program on the same disk.
    void restart() {
        device.reset();
        auto options = withClasses();
        options.files = files;
        device = std::make_unique<TestEnvironment>(std::move(options));
        Analytics::setReporter(spy);
    }
    static Data archived(const std::string& name) {
        return LinuxFileSystem().readFile(joinPath(testData(), "settings/" + name)).value();
    }
    void store(const char* fileName, const std::string& archive) { files->store(pathOf(fileName), archived(archive)); }
    std::string pathOf(const char* fileName) { return joinPath((*device)->paths().applicationSupport, fileName); }

    std::shared_ptr<FaultFileSystem> files = std::make_shared<FaultFileSystem>();
    std::shared_ptr<ReporterSpy> spy = std::make_shared<ReporterSpy>();
    std::unique_ptr<TestEnvironment> device;
};

void expectDefaults() {
    EXPECT_EQ(AppSettings::tableSortType(), 0);
    EXPECT_THAT(AppSettings::tableSortIdentifiers(), IsEmpty());
    EXPECT_TRUE(AppSettings::tableCellIconShow());
    EXPECT_EQ(AppSettings::defaultTime(), 0);
    EXPECT_EQ(AppSettings::defaultIntervalFormat(), HHEventDateFormat());
    EXPECT_THAT(AppSettings::defaultAlerts(), IsEmpty());
    EXPECT_EQ(AppSettings::defaultSoundName(), std::nullopt);
    EXPECT_EQ(AppSettings::old_defaultFontName(), std::nullopt);
    EXPECT_EQ(AppSettings::old_defaultTextColor(), std::nullopt);
    EXPECT_EQ(AppSettings::old_appBadgeShow(), std::nullopt);
}

TEST_F(AppSettingsTest, AFirstStartIsSeededWithTheDefaultsInOrder) {
    expectDefaults();
    EXPECT_THAT(spy->names, ElementsAre("tableSortType", "iconShow", "time", "intervalFormat", "alerts", "sound"));
    EXPECT_EQ(spy->values.at("iconShow"), "YES");
    restart();
    EXPECT_TRUE((*device)->files().exists(pathOf(AppSettings::kFileName)));
    AppSettings::setDefaultTime(5);
    EXPECT_THAT(spy->names, testing::SizeIs(7)) << "the second start must not seed again";
}

TEST_F(AppSettingsTest, OldValuesReplaceTheDefaultsOnce) {
    store(AppSettings::kOldFileName, "partial.archive");
    EXPECT_EQ(AppSettings::defaultTime(), 75);
    EXPECT_FALSE(AppSettings::tableCellIconShow());
    EXPECT_EQ(AppSettings::tableSortType(), 0);
    EXPECT_THAT(AppSettings::defaultAlerts(), IsEmpty());
    EXPECT_THAT(spy->names, ElementsAre("tableSortType", "iconShow", "time", "intervalFormat", "alerts", "sound",
                                        "iconShow", "time"));
    AppSettings::setDefaultTime(10);
    restart();
    EXPECT_EQ(AppSettings::defaultTime(), 10);
}

TEST_F(AppSettingsTest, AnExistingFileIsReadAsItIs) {
    store(AppSettings::kFileName, "complete.archive");
    store(AppSettings::kOldFileName, "partial.archive");
    EXPECT_EQ(AppSettings::tableSortType(), 2);
    EXPECT_THAT(AppSettings::tableSortIdentifiers(), ElementsAre("b", "a"));
    EXPECT_FALSE(AppSettings::tableCellIconShow());
    EXPECT_EQ(AppSettings::defaultTime(), 540);
    EXPECT_EQ(AppSettings::defaultIntervalFormat(),
              HHEventDateFormat(CalendarUnit::day | CalendarUnit::hour, static_cast<TextStyle>(1)));
    const auto alerts = AppSettings::defaultAlerts();
    ASSERT_EQ(alerts.size(), 2u);
    EXPECT_EQ(alerts[0].day, 1);
    EXPECT_EQ(alerts[1].hour, -2);
    EXPECT_EQ(AppSettings::defaultSoundName(), "bells.caf");
    EXPECT_EQ(AppSettings::old_defaultFontName(), "Georgia");
    EXPECT_EQ(AppSettings::old_defaultTextColor(), (Color{1, 0.5, 0.25, 1}));
    EXPECT_EQ(AppSettings::old_appBadgeShow(), true);
    EXPECT_THAT(spy->names, IsEmpty());
}

TEST_F(AppSettingsTest, AFileThatTheDeviceRefusesAtFirstIsNotSeededOver) {
    for (std::size_t failing = 1; failing <= 4; ++failing) {
        store(AppSettings::kFileName, "complete.archive");
        restart();
        files->failOperation(failing);
        static_cast<void>(AppSettings::tableSortType());
        files->heal();
        restart();
        EXPECT_EQ(AppSettings::defaultTime(), 540) << failing;
        EXPECT_EQ(AppSettings::tableSortType(), 2) << failing;
    }
}

TEST_F(AppSettingsTest, AValueOfAWrongTypeReadsAsTheDefault) {
    store(AppSettings::kFileName, "mistyped.archive");
    expectDefaults();
}

TEST_F(AppSettingsTest, EverySetterIsKeptAndReported) {
    expectDefaults();
    const HHEventDateFormat format(CalendarUnit::year | CalendarUnit::minute, static_cast<TextStyle>(2));
    const std::vector<XDIDateInterval> alerts{{CalendarUnit::week, 2}, XDIDateInterval()};
    AppSettings::setTableSortType(1);
    AppSettings::setTableSortIdentifiers({"x", "y"});
    AppSettings::setTableCellIconShow(false);
    AppSettings::setDefaultTime(1439);
    AppSettings::setDefaultIntervalFormat(format);
    AppSettings::setDefaultAlerts(alerts);
    AppSettings::setDefaultSoundName("horn.caf");
    EXPECT_EQ(spy->values.at("tableSortType"), 1);
    EXPECT_EQ(spy->values.at("iconShow"), "NO");
    EXPECT_EQ(spy->values.at("time"), 1439);
    EXPECT_EQ(spy->values.at("sound"), "horn.caf");
    EXPECT_EQ(spy->names.size(), 12u) << "the order made by hand is not reported";
    restart();
    EXPECT_EQ(AppSettings::tableSortType(), 1);
    EXPECT_THAT(AppSettings::tableSortIdentifiers(), ElementsAre("x", "y"));
    EXPECT_FALSE(AppSettings::tableCellIconShow());
    EXPECT_EQ(AppSettings::defaultTime(), 1439);
    EXPECT_EQ(AppSettings::defaultIntervalFormat(), format);
    EXPECT_EQ(AppSettings::defaultAlerts(), alerts);
    AppSettings::setDefaultSoundName(std::nullopt);
    EXPECT_EQ(AppSettings::defaultSoundName(), std::nullopt);
}

TEST_F(AppSettingsTest, TheSortModesObserverMayAskBackEvenWhileItIsSeeded) {
    std::vector<std::int64_t> seen;
    const auto observation = (*device)->notifications().addObserver(AppSettings::kTableSortDidUpdateNotification,
                                                                    [&](const Notification& notification) {
                                                                        EXPECT_THAT(notification.userInfo, IsEmpty());
                                                                        seen.push_back(AppSettings::tableSortType());
                                                                    });
    AppSettings::setTableSortType(2);
    AppSettings::setTableCellIconShow(false);
    EXPECT_THAT(seen, ElementsAre(0, 2));
}

TEST_F(AppSettingsTest, OfTwoProcessesThatStartFirstOnlyOneSeeds) {
    std::thread other;
    const auto observation =
        (*device)->notifications().addObserver(AppSettings::kTableSortDidUpdateNotification, [&](const Notification&) {
            other = std::thread([&] {
                auto options = withClasses();
                options.files = files;
                const TestEnvironment process(std::move(options));
                AppSettings::setDefaultTime(30);
            });
        });
    EXPECT_EQ(AppSettings::defaultTime(), 0);
    other.join();
    restart();
    EXPECT_EQ(AppSettings::defaultTime(), 30);
}

TEST_F(AppSettingsTest, TheLaunchLockIsInTheDefaultsAtOnce) {
    EXPECT_FALSE(AppSettings::TouchIDOn());
    AppSettings::setTouchIDOn(true);
    restart();
    EXPECT_TRUE(AppSettings::TouchIDOn());
    (*device)->standardDefaults().setObject("on", AppSettings::Keys::touchIDOn);
    EXPECT_FALSE(AppSettings::TouchIDOn());
    EXPECT_FALSE((*device)->files().exists(pathOf(AppSettings::kFileName)));
}

TEST_F(AppSettingsTest, AFullDiskIsLoggedAndTheChoiceIsKept) {
    expectDefaults();
    AppSettings::synchronize();
    files->fillDiskAt(1);
    AppSettings::setDefaultTime(30);
    AppSettings::synchronize();
    EXPECT_EQ(AppSettings::defaultTime(), 30);
    EXPECT_EQ(device->log->errors().size(), 1u);
    files->heal();
    AppSettings::setTableCellIconShow(false);
    restart();
    EXPECT_EQ(AppSettings::defaultTime(), 30);
}

TEST_F(AppSettingsTest, AFileThatStoppedTheProcessIsLeftOutOfTheNextStartAndKept) {
    device.reset();
    TestEnvironment onDisk(withClasses());
    const std::string path = joinPath(onDisk->paths().applicationSupport, AppSettings::kFileName);
    ASSERT_TRUE(writeFileAtomically(onDisk->files(), path, archived("corrupt.archive")));
    EXPECT_DEATH(static_cast<void>(AppSettings::tableSortType()), AppSettings::kFileName);
    EXPECT_EQ(AppSettings::defaultTime(), 0);
    EXPECT_THAT(onDisk.log->errors(), ElementsAre(testing::HasSubstr(path + " stopped an earlier start")));
    AppSettings::setDefaultTime(30);
    AppSettings::synchronize();
    EXPECT_EQ(onDisk->files().readFile(path + ".unreadable").value(), archived("corrupt.archive"));
    EXPECT_EQ(CCKeyStorage(KeyStorageFile{path}).values(), (Dictionary{{AppSettings::Keys::defaultTime, 30}}));
}

}  // namespace
}  // namespace dayward

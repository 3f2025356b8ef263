// Every change of a home, with each of its file operations failed in turn in each way: a new start finds
// everything old or new, whole, and whoever waited for the change was told why it failed.
#include <gmock/gmock.h>

#include <cstring>
#include <iostream>

#include "Classes/Category/CategoryLocalStore.h"
#include "Classes/Category/EventCategory.h"
#include "Classes/Category/ImageEventBackgroundPicture.h"
#include "Classes/Category/ImageEventIconPicture.h"
#include "Classes/Settings/AppSettings.h"
#include "EventStoreDevice.h"
#include "Submodules/CorpLibrary2/App/CCAppHistory.h"
#include "Submodules/CorpLibrary2/Foundation/XXKeyStorage.h"
#include "platform/UserDefaults.h"
#include "support/FaultFileSystem.h"

namespace dayward {
namespace {

using Loss = FaultFileSystem::CrashLoss;
using Files = std::map<std::string, Data>;

constexpr std::uint32_t kChances = 8;

/// How an operation fails, and what becomes of the device afterwards.
struct Way {
    const char* name;
    void (*fail)(FaultFileSystem&, std::size_t number);
    int code;  ///< whose text must be told; 0 where the process dies and can tell nothing
    Loss loss = Loss::nothing;
    std::uint32_t chances = 1;
};

constexpr auto kInputOutputError = [](FaultFileSystem& files, std::size_t n) { files.failOperation(n, EIO); };
constexpr auto kDenied = [](FaultFileSystem& files, std::size_t n) { files.failOperation(n, EACCES); };
constexpr auto kFull = [](FaultFileSystem& files, std::size_t n) { files.fillDiskAt(n); };
constexpr auto kDeath = [](FaultFileSystem& files, std::size_t n) { files.crashAt(n); };

/// A write that fails leaves half of its bytes behind, in every way.
const Way kWays[] = {
    {"error", kInputOutputError, EIO},
    {"denied", kDenied, EACCES},
    {"full disk", kFull, ENOSPC},
    {"device gone", kDeath, EIO},
    {"error, then loss of power", kInputOutputError, EIO, Loss::allUnsynced},
    {"full disk, then loss of power", kFull, ENOSPC, Loss::byChance, kChances},
    {"killed", kDeath, 0},
    {"loss of power", kDeath, 0, Loss::allUnsynced},
    {"loss of power, names kept", kDeath, 0, Loss::unsyncedContents},
    {"loss of power, contents kept", kDeath, 0, Loss::unsyncedEntries},
    {"loss of power, anything kept", kDeath, 0, Loss::byChance, kChances},
};

struct Change {
    const char* name;
    std::function<Result<>(EventStoreDevice&)> make;
    bool hasExchange = true;
};

std::shared_ptr<const Image> image(std::uint8_t shade) {
    return std::make_shared<const Image>(1, 1, Data{shade, 0, 0, 255});
}

std::shared_ptr<HHEvent> illustrated(const std::string& key, std::uint8_t shade) {
    auto event = makeEvent(key, "shade " + std::to_string(shade));
    event->setIcon(std::make_shared<ImageEventIconPicture>(image(shade)));
    event->setBackground(std::make_shared<ImageEventBackgroundPicture>(image(shade)));
    return event;
}

std::shared_ptr<HHEvent> renamed(EventStoreDevice& device, const std::string& key) {
    auto event = device.store().eventByIdentifier(key);
    if (event) event->setName("renamed");
    return event;
}

Result<> save(EventStoreDevice& device, const std::vector<std::shared_ptr<HHEvent>>& events) {
    std::vector<std::shared_ptr<HHEvent>> present = events;
    std::erase(present, nullptr);
    device.store().updateEvents(present);
    auto saved = device.store().flush();
    if (saved && present.size() < events.size()) return failure("test", 0, {{"reason", "not loaded"}});
    return saved;
}

Result<> remove(EventStoreDevice& device, const std::vector<std::string>& keys) {
    std::vector<std::shared_ptr<HHEvent>> events;
    for (const auto& key : keys) events.push_back(makeEvent(key));
    device.store().removeEvents(events);
    return device.store().flush();
}

/// For changes that tell their failures to the log alone.
Result<> asLogged(const EventStoreDevice& device) {
    const auto lines = device.environment.log->errors();
    if (lines.empty()) return {};
    return failure("log", 0, {{"reason", lines.front()}});
}

Result<> copyFromAnother(EventStoreDevice& device) {
    const auto received = device.store().syncWrite("/home/test/sender/b.evn", "b", device.store());
    return received ? device.store().flush() : received;
}

/// Large enough to be written with one sync of the device.
Result<> changeMany(EventStoreDevice& device) {
    std::vector<std::shared_ptr<HHEvent>> changed = {illustrated("new", 1), renamed(device, "a")};
    for (const char* key : {"d", "e", "f", "g"}) changed.push_back(makeEvent(key));
    std::erase(changed, nullptr);
    device.store().updateEvents(changed);
    device.store().removeEvents({makeEvent("b"), makeEvent("c")});
    auto saved = device.store().flush();
    return saved && changed.size() < 6 ? failure("test", 0, {{"reason", "not loaded"}}) : saved;
}

Result<> changeCategory(EventStoreDevice& device) {
    const EnvironmentScope scope(&*device.environment);
    auto category = std::make_shared<EventCategory>("own");
    category->name = "own";
    CategoryLocalStore::shared().updateCategory(category, CategoryLocalStore::Initialize::no);
    return asLogged(device);
}

Result<> changeSettings(EventStoreDevice& device) {
    AppSettings::setDefaultTime(90);
    AppSettings::setTouchIDOn(true);
    auto written = AppSettings::synchronize();
    return written ? asLogged(device) : written;
}

Result<> changeHistory(EventStoreDevice& device) {
    CCAppHistory::addEvent("launch");
    CCAppHistory::synchronize();
    return asLogged(device);
}

Result<> changeValues(EventStoreDevice& device) {
    XXKeyStorage values(KeyStorageFile{joinPath(device.environment->paths().library, "values.dat")});
    values.setObject("second", "b");
    values.synchronize();
    return asLogged(device);
}

const Change kChanges[] = {
    {"open", [](auto& device) { return device.store().leftOut().empty() ? Result<>() : asLogged(device); }},
    {"new event", [](auto& device) { return save(device, {illustrated("new", 1)}); }},
    {"edit", [](auto& device) { return save(device, {renamed(device, "a")}); }},
    {"edit without exchange", [](auto& device) { return save(device, {renamed(device, "a")}); }, false},
    {"new pictures", [](auto& device) { return save(device, {illustrated("a", 2)}); }},
    {"batch",
     [](auto& device) {
         return save(device, {illustrated("new", 1), renamed(device, "a"), makeEvent("newer"), illustrated("b", 2)});
     }},
    {"large batch with removals", changeMany},
    {"large batch with removals without exchange", changeMany, false},
    {"removal", [](auto& device) { return remove(device, {"a"}); }},
    {"removal of a batch",
     [](auto& device) {
         return remove(device, {"a", "b"});
     }},
    {"copy of another store's", copyFromAnother},
    {"category", changeCategory},
    {"settings", changeSettings},
    {"history", changeHistory},
    {"values", changeValues},
};

/// A device on a file system in memory.
struct FaultyDevice {
    explicit FaultyDevice(const Files& content = {}, bool hasExchange = true) {
        for (const auto& [path, bytes] : content) files->store(path, bytes);
        if (!hasExchange) files->forbidExchange();
    }

    [[nodiscard]] TestEnvironment::Options options() const {
        TestEnvironment::Options made;
        made.files = files;
        return made;
    }
    /// Everything of the home except locks.
    [[nodiscard]] Files content() const {
        Files found = files->tree("/");
        std::erase_if(found, [](const auto& file) { return file.first.contains("lock"); });
        return found;
    }

    std::shared_ptr<FaultFileSystem> files = std::make_shared<FaultFileSystem>();
};

const Files& homeBefore() {
    static const Files content = [] {
        const FaultyDevice disk;
        EventStoreDevice device(disk.options());
        EXPECT_TRUE(save(device, {illustrated("a", 1), illustrated("b", 1), makeEvent("c")}));
        EXPECT_TRUE(changeCategory(device) && changeSettings(device) && changeHistory(device));
        XXKeyStorage values(KeyStorageFile{joinPath(device.environment->paths().library, "values.dat")});
        values.setObject("first", "a");
        values.synchronize();
        AppSettings::setDefaultTime(30);
        AppSettings::setTouchIDOn(false);
        EXPECT_TRUE(AppSettings::synchronize());
        CategoryLocalStore::shared().removeCategory(CategoryLocalStore::shared().getCategory("own"));
        disk.files->store(device.path("a") + "/foreign/inside/file", dataOf("foreign"));
        for (const char* file : {"general.t", "icon.i"})
            disk.files->store(joinPath("/home/test/sender/b.evn", file),
                              *disk.files->readFile(joinPath(device.path("a"), file)));
        return disk.content();
    }();
    return content;
}

/// A package is one thing, and so is any other file.
std::string thingOf(const std::string& path) {
    const auto end = path.find(".evn/");
    return end == std::string::npos ? path : path.substr(0, end + 4);
}

std::map<std::string, Files> thingsOf(const Files& content) {
    std::map<std::string, Files> things;
    for (const auto& [path, bytes] : content) things[thingOf(path)][path] = bytes;
    return things;
}

class HomeFaults : public testing::TestWithParam<Change> {
protected:
    struct Run {
        FaultyDevice disk;
        Result<> result;
        std::vector<std::string> log;
        std::size_t operations = 0;
        std::string failed = "end";  ///< the operation with the fault
    };

    /// The change with the operation of that number failed, none where it is 0.
    static Run run(std::size_t number, const Way* way) {
        Run run;
        run.disk = FaultyDevice(homeBefore(), GetParam().hasExchange);
        EventStoreDevice device(run.disk.options());
        const std::size_t before = run.disk.files->operationCount();
        if (way != nullptr) way->fail(*run.disk.files, number);
        run.result = GetParam().make(device);
        run.operations = run.disk.files->operationCount() - before;
        if (number > 0 && number <= run.operations) run.failed = run.disk.files->operations()[before + number - 1];
        run.log = device.environment.log->errors();
        return run;
    }

    /// The change in a process that dies before that operation, whose name is returned.
    static std::string killAt(std::size_t number, const FaultyDevice& disk) {
        EventStoreDevice killed(disk.options());
        const std::size_t before = disk.files->operationCount();
        disk.files->crashAt(number);
        (void)GetParam().make(killed);
        disk.files->restart(Loss::nothing);
        return disk.files->operations()[before + number - 1];
    }

    static std::vector<std::string> namesOf(const Files& files) {
        std::vector<std::string> names;
        for (const auto& [name, bytes] : files) names.push_back(name);
        return names;
    }

    /// What a new start finds once it has opened everything.
    static Files afterStart(const FaultyDevice& disk) {
        EventStoreDevice device(disk.options());
        const Paths& paths = device.environment->paths();
        for (const auto& directory : {paths.documents, paths.library, paths.applicationSupport, paths.config})
            removeStaleTemporaries(*disk.files, directory);
        const std::size_t count = device.store().itemsCount();
        const Files content = disk.content();
        std::size_t packages = 0;
        for (const auto& [thing, files] : thingsOf(content)) packages += thing.starts_with(paths.documents.substr(1));
        EXPECT_EQ(count, packages);
        EXPECT_THAT(device.environment.log->errors(), testing::IsEmpty());
        return content;
    }

    /// Whether every thing is old or new; `isNew` where all of them are new.
    void check(const Files& found, bool& isNew) const {
        auto things = thingsOf(found);
        isNew = true;
        for (const auto* expected : {&old_, &new_})
            for (const auto& [thing, files] : *expected) things.try_emplace(thing);
        for (const auto& [thing, files] : things) {
            const auto is = [&](const std::map<std::string, Files>& all) {
                const auto at = all.find(thing);
                return files == (at == all.end() ? Files() : at->second);
            };
            EXPECT_TRUE(is(old_) || is(new_)) << thing << " has " << files.size() << " files";
            isNew = isNew && is(new_);
        }
    }

    static std::string told(const Run& run) {
        std::string told = run.result ? "" : run.result.error().description();
        for (const auto& line : run.log) told += "\n" + line;
        return told;
    }

    static bool isTold(const Run& run, int code) {
        return told(run).contains("/home/test/") && told(run).contains(std::strerror(code));
    }

    const std::map<std::string, Files> old_ = thingsOf(homeBefore());
    std::map<std::string, Files> new_;
};

TEST_P(HomeFaults, LeaveEverythingOldOrNewAndAreTold) {
    Run faultless = run(0, nullptr);
    ASSERT_TRUE(faultless.result) << faultless.result.error().description();
    new_ = thingsOf(faultless.disk.content());
    std::size_t runs = 0;
    std::size_t untold = 0;
    for (const Way& way : kWays) {
        for (std::size_t number = 1; number <= faultless.operations + (way.code == 0 ? 1 : 0); ++number) {
            for (std::uint32_t chance = 0; chance < way.chances; ++chance, ++runs) {
                Run failed = run(number, &way);
                SCOPED_TRACE(std::string(way.name) + " at " + std::to_string(number) + " " + failed.failed +
                             ", chance " + std::to_string(chance));
                failed.disk.files->restart(way.loss, chance);
                bool isNew = false;
                check(afterStart(failed.disk), isNew);
                EXPECT_TRUE(!failed.result || isNew) << "confirmed, but lost";
                if (way.code != 0 && !isTold(failed, way.code)) {
                    EXPECT_TRUE(failed.result && isNew) << "not done, and nobody was told why: " << told(failed);
                    ++untold;
                }
                if (HasFailure()) return;
            }
        }
    }
    std::cout << GetParam().name << ": " << faultless.operations << " operations, each failed in " << std::size(kWays)
              << " ways, " << runs << " runs; " << untold << " errors did no harm\n";
}

/// Another process is open when this one is killed at each of its operations. It finds what a new start would, and
/// what it does to an event then stands, whether it has seen the death or not.
TEST_P(HomeFaults, LeaveAnotherProcessWhole) {
    enum class Next { edit, removal, blindEdit };
    const bool mayRemove = std::string(GetParam().name).starts_with("removal");
    const std::size_t operations = run(0, nullptr).operations;
    for (std::size_t step = 3; step < 3 * operations + 3 && !HasFailure(); ++step) {
        const std::size_t number = step / 3;
        const auto next = static_cast<Next>(step % 3);
        const FaultyDevice disk(homeBefore(), GetParam().hasExchange);
        EventStoreDevice other(disk.options());
        const auto filesOf = [&](const char* key) { return namesOf(disk.files->tree(other.path(key))); };
        const auto before = filesOf("a");
        (void)other.store();
        SCOPED_TRACE("killed at " + std::to_string(number) + " " + killAt(number, disk));
        if (next != Next::blindEdit) {
            other.store().refreshFromDisk();
            EXPECT_EQ(other.nameInMemory("a") == "-", filesOf("a").empty());
            EXPECT_TRUE(mayRemove || !filesOf("a").empty());
        }
        const bool isThere = other.nameInMemory("a") != "-";
        const bool isWhole = !mayRemove || !filesOf("a").empty();
        EXPECT_TRUE(!isThere || (next == Next::removal ? remove(other, {"a"}) : save(other, {renamed(other, "a")})));
        (void)afterStart(disk);
        if (!isThere || next == Next::removal) {
            EXPECT_TRUE(filesOf("a").empty());
        } else {
            EXPECT_EQ(filesOf("a"), isWhole ? before : std::vector<std::string>{"general.t"});
        }
    }
}

INSTANTIATE_TEST_SUITE_P(All, HomeFaults, testing::ValuesIn(kChanges), [](const auto& tested) {
    std::string name = tested.param.name;
    std::ranges::replace_if(
        name, [](char c) { return c == ' ' || c == '\''; }, '_');
    return name;
});

}  // namespace
}  // namespace dayward

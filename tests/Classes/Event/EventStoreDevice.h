// A device with an event store, and what its tests need: events, packages as another process leaves
// them, records that stop their reader.
#pragma once

#include <functional>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "Classes/Category/PictureClasses.h"
#include "Classes/Event/EventLocalStore.h"
#include "Classes/Event/EventStoreHelper.h"
#include "Classes/Event/HHEvent.h"
#include "Classes/Event/HHGeneralEventDocumentData.h"
#include "Classes/Other/Date/HHEventDateFormat.h"
#include "Submodules/CorpLibrary2/Foundation/FoundationClasses.h"
#include "intervals/IntervalClasses.h"
#include "platform/FatalError.h"
#include "platform/FileSystem.h"
#include "platform/KeyedArchiver.h"
#include "platform/linux/LinuxFileSystem.h"
#include "support/NotificationRecorder.h"
#include "support/TestEnvironment.h"

namespace dayward {

/// Stops the process when it is read: by a fatal error, or by a fault of the processor.
class Bomb final : public Archivable {
public:
    explicit Bomb(std::string className) : className_(std::move(className)) {}
    [[nodiscard]] std::vector<std::string> archiveClassNames() const override { return {className_}; }
    void encodeWithCoder(KeyedArchiver&) const override {}

    static void registerClasses(ArchiveClasses& classes) {
        classes.add("FatalBomb",
                    [](KeyedUnarchiver&) -> std::shared_ptr<Archivable> { fatalError("a bomb went off"); });
        classes.add("CrashBomb", [](KeyedUnarchiver&) -> std::shared_ptr<Archivable> { __builtin_trap(); });
    }

private:
    const std::string className_;
};

inline std::shared_ptr<const ArchiveClasses> eventStoreClasses() {
    auto classes = std::make_shared<ArchiveClasses>();
    registerColorClass(*classes);
    registerFoundationClasses(*classes);
    registerIntervalClasses(*classes);
    registerDateFormatClasses(*classes);
    registerSyncClasses(*classes);
    registerPictureClasses(*classes);
    registerEventClasses(*classes);
    Bomb::registerClasses(*classes);
    return classes;
}

inline std::shared_ptr<HHEvent> makeEvent(const std::string& key, const std::string& name = "event") {
    auto event = std::make_shared<HHEvent>(key);
    event->setName(name);
    return event;
}

/// Runs a step of the test once, right after the next lock was given back.
class InterruptedFiles final : public LinuxFileSystem {
public:
    Result<std::unique_ptr<FileLock>> lock(const std::string& path, bool exclusive) override {
        auto held = TRY(LinuxFileSystem::lock(path, exclusive));
        if (!interruption) return held;
        return std::make_unique<Interrupting>(std::move(held), std::exchange(interruption, nullptr));
    }
    std::function<void()> interruption;

private:
    struct Interrupting final : FileLock {
        Interrupting(std::unique_ptr<FileLock> lock, std::function<void()> step)
            : held(std::move(lock)), next(std::move(step)) {}
        ~Interrupting() override {
            held.reset();
            next();
        }
        std::unique_ptr<FileLock> held;
        std::function<void()> next;
    };
};

struct EventStoreDevice {
    explicit EventStoreDevice(TestEnvironment::Options options = {}) : environment(withClasses(std::move(options))) {}

    static TestEnvironment::Options withClasses(TestEnvironment::Options options) {
        options.archiveClasses = eventStoreClasses();
        return options;
    }
    /// Another process on the same home.
    static TestEnvironment::Options onHome(const std::string& home) {
        TestEnvironment::Options options;
        options.home = home;
        return options;
    }

    /// Made on first use.
    EventLocalStore& store() { return environment->shared<EventLocalStore>(); }
    void run() const { environment.queues->runAll(); }
    [[nodiscard]] std::string path(const std::string& key) const {
        return joinPath(environment.environment->paths().documents, key + ".evn");
    }
    [[nodiscard]] bool hasPackage(const std::string& key) const {
        return environment.environment->files().exists(path(key));
    }
    /// The name of the event in the package; "-" where none can be read.
    [[nodiscard]] std::string nameOnDisk(const std::string& key) const {
        const EnvironmentScope scope(environment.environment.get());
        const auto event = EventStoreHelper::readEvent(path(key));
        return event ? (*event)->name().value_or("") : "-";
    }
    [[nodiscard]] std::string nameInMemory(const std::string& key) {
        const auto event = store().eventByIdentifier(key);
        return event ? event->name().value_or("") : "-";
    }
    /// Writes the package as another process would.
    void writePackage(const HHEvent& event) const {
        const EnvironmentScope scope(environment.environment.get());
        const auto written = EventStoreHelper::writeEvent(event, path(event.identifier()));
        if (!written) fatalError(written.error().description());
    }
    /// Many packages "key0", "key1" … with the names "n0", "n1" …, without waiting for the device.
    void writeManyPackages(int count) const {
        FileSystem& files = environment.environment->files();
        for (int i = 0; i < count; ++i) {
            const std::string number = std::to_string(i);
            const std::string package = path("key" + number);
            const Object data = makeEvent("key" + number, "n" + number)->getStoreInfo();
            const bool made = files.createDirectory(package).has_value();
            const auto file = files.openForWriting(joinPath(package, "general.t"));
            if (!made || !file || !(*file)->write(KeyedArchiver::archivedDataWithRootObject(data)) || !(*file)->close())
                fatalError("cannot write " + package);
        }
    }
    void writeBomb(const std::string& key, const char* className = "FatalBomb") const {
        const auto event = makeEvent(key);
        event->setSourceInfo(std::make_shared<Bomb>(className));
        writePackage(*event);
    }
    void writeFile(const std::string& filePath, const Data& bytes) const {
        FileSystem& files = environment.environment->files();
        if (!files.createDirectories(parentPath(filePath)) || !writeFileAtomically(files, filePath, bytes))
            fatalError("cannot write " + filePath);
    }

    static std::string describe(const Object& object) {
        const auto event = object.as<HHEvent>();
        return event ? event->identifier() : "?";
    }

    TestEnvironment environment;
    NotificationRecorder notifications{
        *environment,
        {EventLocalStoreDidUpdateNotification, CCKeyStoreDidRefreshNotification, CCKeyStoreDidUpdateNotification},
        describe};
};

inline constexpr const char* kRefreshed = "CCKeyStoreDidRefreshNotification";
inline std::string eventsUpdated(const std::string& keys) {
    return "EventLocalStoreDidUpdateNotification updated=[" + keys + "]";
}
inline std::string eventsRemoved(const std::string& keys) {
    return "EventLocalStoreDidUpdateNotification removed=[" + keys + "]";
}
inline std::string keysChanged(const std::string& updated, const std::string& removed) {
    return "CCKeyStoreDidUpdateNotification removed=[" + removed + "] updated=[" + updated + "]";
}

}  // namespace dayward

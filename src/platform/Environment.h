// What the program stands on: clock, zone, locale, paths, files, queues, defaults and the objects
// that are shared through them. `main` builds one from real parts; a test builds one, or two for two
// devices in one process, from fakes.
//
// The services are set once in the constructor. Zone and locale may be changed while it runs; any
// thread may ask. Environment::current() is the innermost EnvironmentScope of this thread; queues
// hand it on to their blocks.
#pragma once

#include <functional>
#include <map>
#include <memory>
#include <string>
#include <typeindex>
#include <typeinfo>
#include <utility>
#include <vector>

#include "platform/Archivable.h"
#include "platform/Calendar.h"
#include "platform/Clock.h"
#include "platform/Locale.h"
#include "platform/Mutex.h"
#include "platform/Paths.h"
#include "platform/TimeZone.h"

namespace dayward {

class AudioDevice;
class DirectoryWatcher;
class FileCoordinator;
class FileSystem;
class LocalNotifications;
class Log;
class NotificationCenter;
class Queues;
class Strings;
class UserDefaults;

class Environment {
public:
    struct Services {
        std::shared_ptr<Clock> clock;
        std::shared_ptr<FileSystem> files;
        std::shared_ptr<FileCoordinator> coordinator;
        std::shared_ptr<DirectoryWatcher> watcher;  ///< may be null: then nothing is watched
        std::shared_ptr<AudioDevice> audio;         ///< may be null: then nothing is heard
        std::shared_ptr<LocalNotifications> localNotifications;  ///< may be null: then nothing is scheduled
        std::shared_ptr<Queues> queues;
        std::shared_ptr<NotificationCenter> notifications;
        std::shared_ptr<UserDefaults> standardDefaults;
        std::shared_ptr<UserDefaults> groupDefaults;
        std::shared_ptr<const ArchiveClasses> archiveClasses;
        std::shared_ptr<const Strings> strings;
        std::shared_ptr<Log> log;
        Paths paths;
        TimeZone zone = TimeZone::utc();
        Locale locale;
    };

    explicit Environment(Services services);
    ~Environment();
    Environment(const Environment&) = delete;
    Environment& operator=(const Environment&) = delete;

    /// Stops the process where no environment is in scope.
    static Environment& current();
    static bool hasCurrent();

    [[nodiscard]] Clock& clock() const { return *services_.clock; }
    [[nodiscard]] Date now() const { return services_.clock->now(); }
    [[nodiscard]] FileSystem& files() const { return *services_.files; }
    [[nodiscard]] const std::shared_ptr<FileSystem>& sharedFiles() const { return services_.files; }
    [[nodiscard]] FileCoordinator& coordinator() const { return *services_.coordinator; }
    [[nodiscard]] DirectoryWatcher* watcher() const { return services_.watcher.get(); }
    [[nodiscard]] AudioDevice* audio() const { return services_.audio.get(); }
    [[nodiscard]] LocalNotifications* localNotifications() const { return services_.localNotifications.get(); }
    [[nodiscard]] Queues& queues() const { return *services_.queues; }
    [[nodiscard]] NotificationCenter& notifications() const { return *services_.notifications; }
    [[nodiscard]] UserDefaults& standardDefaults() const { return *services_.standardDefaults; }
    [[nodiscard]] UserDefaults& groupDefaults() const { return *services_.groupDefaults; }
    [[nodiscard]] const ArchiveClasses& archiveClasses() const { return *services_.archiveClasses; }
    [[nodiscard]] const Strings& strings() const { return *services_.strings; }
    [[nodiscard]] Log& log() const { return *services_.log; }
    [[nodiscard]] const Paths& paths() const { return services_.paths; }

    /// The calendar of the present zone and locale. A snapshot: it does not follow a later change.
    [[nodiscard]] std::shared_ptr<const Calendar> calendar() const;
    [[nodiscard]] TimeZone timeZone() const { return calendar()->timeZone(); }
    [[nodiscard]] Locale locale() const;
    void setTimeZone(const TimeZone& zone);

    /// The one object of a class that belongs to this environment, made on first use by its
    /// constructor T(Environment&) and destroyed with the environment, last made first. While it is
    /// made, other threads that ask for it wait, and other classes' objects stay reachable for them; a
    /// constructor that asks for its own object stops the process. A class that has something to tell
    /// about its beginning does it in didBecomeShared(), when everybody can reach the object.
    template <class T>
    T& shared() {
        const std::shared_ptr<SharedSlot> slot = sharedSlot(std::type_index(typeid(T)));
        std::shared_ptr<T> made;
        {
            const Lock lock(slot->mutex);
            if (const std::shared_ptr<void> known = slot->object.lock()) return *static_cast<T*>(known.get());
            if (std::exchange(slot->isBeingMade, true)) stopForRecursion(typeid(T));
            made = std::make_shared<T>(*this);
            slot->isBeingMade = false;
            slot->object = made;
            keepShared(made);
        }
        if constexpr (requires { made->didBecomeShared(); }) made->didBecomeShared();
        return *made;
    }

private:
    /// Runs what is queued and forgets what is delayed: no block may outlive the environment.
    void finishQueues();
    struct SharedSlot {
        RecursiveMutex mutex;
        std::weak_ptr<void> object DAYWARD_GUARDED_BY(mutex);
        bool isBeingMade DAYWARD_GUARDED_BY(mutex) = false;
    };
    std::shared_ptr<SharedSlot> sharedSlot(std::type_index type);
    void keepShared(std::shared_ptr<void> made);
    std::shared_ptr<void> takeLastShared();
    [[noreturn]] static void stopForRecursion(const std::type_info& type);

    Services services_;
    mutable Mutex zoneMutex_;
    std::shared_ptr<const Calendar> calendar_ DAYWARD_GUARDED_BY(zoneMutex_);
    Mutex sharedMutex_;
    std::map<std::type_index, std::shared_ptr<SharedSlot>> sharedSlots_ DAYWARD_GUARDED_BY(sharedMutex_);
    std::vector<std::shared_ptr<void>> sharedOrder_ DAYWARD_GUARDED_BY(sharedMutex_);
};

/// Makes an environment the current one of this thread while it lives.
class EnvironmentScope {
public:
    explicit EnvironmentScope(Environment* environment);
    ~EnvironmentScope();
    EnvironmentScope(const EnvironmentScope&) = delete;
    EnvironmentScope& operator=(const EnvironmentScope&) = delete;

private:
    Environment* outer_;
};

}  // namespace dayward

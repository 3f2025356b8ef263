// The schedule of notifications as a file of the state directory, shared by all processes of a home.
//
// A keyed archive, replaced whole under a file lock; a copy beside it stands in where the file is missing or
// damaged (docs/agent.md has the keys). At most LocalNotifications::kMaximumCount notifications wait in it, put
// off ones first, then those that fire first. Any thread, any process.
#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "platform/LocalNotification.h"
#include "platform/Result.h"

namespace dayward {

class ArchiveClasses;
class FileSystem;

class NotificationSchedule {
public:
    static constexpr const char* kFileName = "notifications.schedule";
    static constexpr const char* kCopyName = "notifications.schedule.copy";
    static constexpr const char* kLockName = "notifications.lock";
    static constexpr std::int64_t kVersion = 1;

    struct Content {
        std::vector<LocalNotification> scheduled;  ///< by fire date, those without one last
        std::vector<LocalNotification> snoozed;    ///< put off by the user
        std::vector<LocalNotification> withdrawn;  ///< cancelled after they may have been shown; to be taken out of sight
        std::int64_t badgeNumber = 0;
        bool needsRebuild = false;  ///< the file was damaged or gone: what the events want is to be scheduled anew

        /// One that equals a scheduled one changes nothing.
        void schedule(const LocalNotification& notification);
        /// One that equals a snoozed one changes nothing.
        void snooze(const LocalNotification& notification);
        /// Without a fire date it means every one with the same user info.
        void cancel(const LocalNotification& notification);
        /// Refuses what is too much, latest first.
        void limit();
        bool operator==(const Content&) const = default;
    };

    NotificationSchedule(std::shared_ptr<FileSystem> files, std::shared_ptr<const ArchiveClasses> classes,
                         std::string directory);

    /// What the last finished change left; of the copy where the file cannot be read, and empty where both are damaged.
    /// An error where the device can read neither.
    [[nodiscard]] Result<Content> read() const;
    /// Changes it while no other process does, and writes it where it differs. On an error the old content stays. A
    /// damaged file is kept as its unreadable copy; one that the device cannot read now is an error.
    Result<> change(const std::function<void(Content&)>& edit);
    /// For whoever has waited long enough: until the next change, a file that the device cannot read counts as damaged.
    void takeUnreadForDamaged() { unreadIsDamaged_ = true; }

private:
    struct Found {
        Content content;
        bool fileIsDamaged = false;
        std::optional<Error> unread;  ///< why the device could not read the file; the content is the copy's
    };
    [[nodiscard]] Result<Content> decode(const std::string& path) const;
    [[nodiscard]] Result<Found> find() const;
    Result<> store(const Content& content);

    const std::shared_ptr<FileSystem> files_;
    const std::shared_ptr<const ArchiveClasses> classes_;
    const std::string path_, copy_, lock_;
    bool unreadIsDamaged_ = false;
};

}  // namespace dayward

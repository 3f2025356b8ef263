// What was delivered, so that nothing is shown twice: a file of the state directory, replaced whole and durably.
//
// A notification is claimed by a process before it is shown and marked after it. One whose claimant is gone was
// perhaps not shown: whoever finds it shows it under the same key. Who reads and then writes must hold the schedule's
// lock between (docs/agent.md has the file). One thread.
#pragma once

#include <cstddef>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "platform/LocalNotification.h"
#include "platform/Result.h"

namespace dayward {

class ArchiveClasses;
class FileSystem;

struct Delivery {
    std::string key;
    LocalNotification notification;
    std::string claimant;  ///< who is about to show it; empty once it is shown

    [[nodiscard]] bool isShown() const { return claimant.empty(); }
    bool operator==(const Delivery&) const = default;
};

class DeliveryRecord {
public:
    static constexpr const char* kFileName = "notifications.delivered";
    static constexpr std::int64_t kVersion = 1;
    static constexpr std::size_t kMostShown = 64;      ///< kept whole after they were shown
    static constexpr std::size_t kMostClaimed = 1024;  ///< that nothing could show yet
    static constexpr std::size_t kMostEarlier = 2048;  ///< of which only the key is kept

    struct Content {
        std::vector<Delivery> recent;      ///< in the order in which they were claimed
        std::vector<std::string> earlier;  ///< keys, oldest first
        std::optional<Date> fetched;       ///< when the schedule was last filled by a background fetch

        [[nodiscard]] const Delivery* find(const std::string& key) const;
        [[nodiscard]] bool knows(const std::string& key) const;
        /// One that is known stays as it is.
        void claim(const LocalNotification& notification, const std::string& claimant);
        void markShown(const std::string& key);
        /// Forgets the oldest beyond the numbers above.
        void limit();
        bool operator==(const Content&) const = default;
    };

    DeliveryRecord(std::shared_ptr<FileSystem> files, std::shared_ptr<const ArchiveClasses> classes,
                   const std::string& directory);

    /// Empty where there is no file, and where it is damaged: that is logged, and the next write keeps it as its
    /// unreadable copy. An error where the device cannot be read now.
    [[nodiscard]] Result<Content> read() const;
    Result<> write(const Content& content);
    /// For whoever has waited long enough: until the next write, a file that the device cannot read counts as damaged.
    void takeUnreadForDamaged() { unreadIsDamaged_ = true; }
    [[nodiscard]] const std::string& path() const { return path_; }

private:
    [[nodiscard]] Result<Content> decode() const;

    const std::shared_ptr<FileSystem> files_;
    const std::shared_ptr<const ArchiveClasses> classes_;
    const std::string path_;
    mutable bool isDamaged_ = false;
    bool unreadIsDamaged_ = false;
};

}  // namespace dayward

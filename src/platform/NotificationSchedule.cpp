#include "platform/NotificationSchedule.h"

#include <algorithm>
#include <limits>

#include "platform/DictionaryValue.h"
#include "platform/FileSystem.h"
#include "platform/KeyedArchiver.h"
#include "platform/KeyedUnarchiver.h"
#include "platform/LocalNotifications.h"
#include "platform/Log.h"
#include "platform/NotificationArchive.h"
#include "platform/UnreadableFiles.h"

namespace dayward {

namespace {

namespace Keys {
constexpr const char* version = "version";
constexpr const char* scheduled = "scheduled";
constexpr const char* snoozed = "snoozed";
constexpr const char* withdrawn = "withdrawn";
constexpr const char* badgeNumber = "badgeNumber";
constexpr const char* needsRebuild = "needsRebuild";
}  // namespace Keys

double order(const LocalNotification& notification) {
    return notification.fireDate ? notification.fireDate->secondsSinceReference()
                                 : std::numeric_limits<double>::infinity();
}

Object encoded(const std::vector<LocalNotification>& notifications) {
    Array list;
    for (const LocalNotification& notification : notifications) list.push_back(objectOfNotification(notification));
    return list;
}

/// All of it or nothing: what is left out would not be given, and nobody would know.
Result<std::vector<LocalNotification>> decodedList(const Dictionary& dictionary, const char* key) {
    std::vector<LocalNotification> list;
    const Object& stored = valueOfKey(dictionary, key);
    if (stored.isNull()) return list;
    if (stored.array() == nullptr) return failure("notification schedule", 0, {{"key", key}, {"reason", "no list"}});
    for (const Object& entry : *stored.array()) {
        auto notification = notificationOfObject(entry);
        if (!notification) {
            return failure("notification schedule", 0, {{"key", key}, {"reason", "one cannot be read"}});
        }
        list.push_back(*std::move(notification));
    }
    return list;
}

}  // namespace

void NotificationSchedule::Content::schedule(const LocalNotification& notification) {
    if (std::ranges::find(scheduled, notification) != scheduled.end()) return;
    scheduled.insert(std::ranges::upper_bound(scheduled, order(notification), {}, order), notification);
}

void NotificationSchedule::Content::snooze(const LocalNotification& notification) {
    if (std::ranges::find(snoozed, notification) == snoozed.end()) snoozed.push_back(notification);
}

void NotificationSchedule::Content::cancel(const LocalNotification& notification) {
    const auto isMeant = [&](const LocalNotification& other) {
        return notification.fireDate ? other == notification : other.userInfo == notification.userInfo;
    };
    const std::size_t removed = std::erase_if(scheduled, isMeant);
    if (!notification.fireDate) std::erase_if(snoozed, isMeant);
    if (notification.fireDate && removed > 0) return;
    if (std::ranges::find(withdrawn, notification) == withdrawn.end()) withdrawn.push_back(notification);
}

void NotificationSchedule::Content::limit() {
    std::ranges::stable_sort(scheduled, {}, order);
    std::ranges::stable_sort(snoozed, {}, order);
    constexpr std::size_t kMost = LocalNotifications::kMaximumCount;
    if (snoozed.size() > kMost) snoozed.resize(kMost);
    if (scheduled.size() > kMost - snoozed.size()) scheduled.resize(kMost - snoozed.size());
    if (withdrawn.size() > kMost) withdrawn.erase(withdrawn.begin(), withdrawn.end() - kMost);
}

NotificationSchedule::NotificationSchedule(std::shared_ptr<FileSystem> files,
                                           std::shared_ptr<const ArchiveClasses> classes, std::string directory)
    : files_(std::move(files)),
      classes_(std::move(classes)),
      path_(joinPath(directory, kFileName)),
      copy_(joinPath(directory, kCopyName)),
      lock_(joinPath(directory, kLockName)) {}

Result<NotificationSchedule::Content> NotificationSchedule::decode(const std::string& path) const {
    const Data bytes = TRY(files_->readFile(path));
    const Object root =
        TRY(KeyedUnarchiver::unarchiveObjectWithData(bytes, *classes_, KeyedUnarchiver::OnRefusal::fail));
    const Dictionary* const fields = root.dictionary();
    if (fields == nullptr || valueOfKey(*fields, Keys::version).integer() != kVersion) {
        return failure("notification schedule", 0, {{"path", path}, {"reason", "not of a known version"}});
    }
    Content content;
    content.scheduled = TRY(decodedList(*fields, Keys::scheduled));
    content.snoozed = TRY(decodedList(*fields, Keys::snoozed));
    content.withdrawn = TRY(decodedList(*fields, Keys::withdrawn));
    content.badgeNumber = valueOfKey(*fields, Keys::badgeNumber).integer().value_or(0);
    content.needsRebuild = valueOfKey(*fields, Keys::needsRebuild).boolean().value_or(false);
    content.limit();
    return content;
}

Result<NotificationSchedule::Found> NotificationSchedule::find() const {
    Found found;
    const bool isThere = TRY(files_->status(path_)).has_value();
    if (isThere) {
        auto content = decode(path_);
        if (content) return Found{*std::move(content), false, std::nullopt};
        // A device that cannot be read now may be read later: the file must not be taken for a broken one.
        found.fileIsDamaged = content.error().domain != "file" || unreadIsDamaged_;
        if (!found.fileIsDamaged) found.unread = content.error();
        logError("notifications: " + path_ + " is unreadable: " + content.error().description());
    }
    const bool hasCopy = TRY(files_->status(copy_)).has_value();
    auto copy = hasCopy ? decode(copy_) : Result<Content>(Content());
    if (found.unread && !(hasCopy && copy)) return std::unexpected(*found.unread);
    if (copy) found.content = *std::move(copy);
    if (!found.unread) found.content.needsRebuild = isThere || hasCopy;
    return found;
}

Result<NotificationSchedule::Content> NotificationSchedule::read() const { return TRY(find()).content; }

Result<> NotificationSchedule::change(const std::function<void(Content&)>& edit) {
    const auto held = TRY(files_->lock(lock_, true));
    const Found found = TRY(find());
    if (found.unread) return std::unexpected(*found.unread);
    Content changed = found.content;
    edit(changed);
    changed.limit();
    if (changed == found.content && !found.content.needsRebuild) return {};
    if (found.fileIsDamaged) TRY_VOID(files_->rename(path_, unreadableCopyPath(path_, 1)));
    TRY_VOID(store(changed));
    unreadIsDamaged_ = false;
    return {};
}

Result<> NotificationSchedule::store(const Content& content) {
    Dictionary fields;
    fields.emplace(Keys::version, kVersion);
    fields.emplace(Keys::scheduled, encoded(content.scheduled));
    fields.emplace(Keys::snoozed, encoded(content.snoozed));
    fields.emplace(Keys::withdrawn, encoded(content.withdrawn));
    fields.emplace(Keys::badgeNumber, content.badgeNumber);
    fields.emplace(Keys::needsRebuild, content.needsRebuild);
    const Data bytes = KeyedArchiver::archivedDataWithRootObject(fields);
    TRY_VOID(writeFileAtomically(*files_, path_, bytes));
    const auto copied = writeFileAtomically(*files_, copy_, bytes);
    if (!copied) logError("notifications: the copy stays old: " + copied.error().description());
    return {};
}

}  // namespace dayward

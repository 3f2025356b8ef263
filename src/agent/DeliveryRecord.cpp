#include "agent/DeliveryRecord.h"

#include <algorithm>

#include "agent/DeliveryKey.h"
#include "platform/DictionaryValue.h"
#include "platform/FileSystem.h"
#include "platform/KeyedArchiver.h"
#include "platform/KeyedUnarchiver.h"
#include "platform/Log.h"
#include "platform/NotificationArchive.h"
#include "platform/UnreadableFiles.h"

namespace dayward {

namespace {

namespace Keys {
constexpr const char* version = "version";
constexpr const char* recent = "recent";
constexpr const char* earlier = "earlier";
constexpr const char* fetched = "fetched";
constexpr const char* key = "key";
constexpr const char* notification = "notification";
constexpr const char* claimant = "claimant";
}  // namespace Keys

Object encoded(const Delivery& delivery) {
    return Dictionary{{Keys::key, delivery.key},
                      {Keys::notification, objectOfNotification(delivery.notification)},
                      {Keys::claimant, delivery.claimant}};
}

std::vector<Delivery> decodedDeliveries(const Object& stored) {
    std::vector<Delivery> deliveries;
    if (stored.array() == nullptr) return deliveries;
    for (const Object& entry : *stored.array()) {
        const Dictionary* fields = entry.dictionary();
        if (fields == nullptr) continue;
        const auto key = valueOfKey(*fields, Keys::key).stringValue();
        auto notification = notificationOfObject(valueOfKey(*fields, Keys::notification));
        if (!key || !notification) continue;
        deliveries.push_back(
            {*key, *std::move(notification), valueOfKey(*fields, Keys::claimant).stringValue().value_or("")});
    }
    return deliveries;
}

/// One text with a key a line: thousands of objects would cost more than they hold.
std::string lines(const std::vector<std::string>& keys) {
    std::string text;
    for (const std::string& key : keys) text += key + '\n';
    return text;
}

std::vector<std::string> decodedLines(const std::string& text) {
    std::vector<std::string> keys;
    for (std::size_t begin = 0; begin < text.size();) {
        const std::size_t end = std::min(text.find('\n', begin), text.size());
        keys.push_back(text.substr(begin, end - begin));
        begin = end + 1;
    }
    return keys;
}

}  // namespace

const Delivery* DeliveryRecord::Content::find(const std::string& key) const {
    const auto found = std::ranges::find(recent, key, &Delivery::key);
    return found == recent.end() ? nullptr : &*found;
}

bool DeliveryRecord::Content::knows(const std::string& key) const {
    return find(key) != nullptr || std::ranges::find(earlier, key) != earlier.end();
}

void DeliveryRecord::Content::claim(const LocalNotification& notification, const std::string& claimant) {
    const std::string key = deliveryKey(notification);
    if (!knows(key)) recent.push_back({key, notification, claimant});
}

void DeliveryRecord::Content::markShown(const std::string& key) {
    const auto found = std::ranges::find(recent, key, &Delivery::key);
    if (found != recent.end()) found->claimant.clear();
}

void DeliveryRecord::Content::limit() {
    const auto forgetOldest = [&](bool isShown, std::size_t most) {
        const auto isMeant = [&](const Delivery& delivery) { return delivery.isShown() == isShown; };
        auto count = static_cast<std::size_t>(std::ranges::count_if(recent, isMeant));
        std::erase_if(recent, [&](const Delivery& delivery) {
            if (!isMeant(delivery) || count <= most) return false;
            --count;
            earlier.push_back(delivery.key);
            return true;
        });
    };
    forgetOldest(true, kMostShown);
    forgetOldest(false, kMostClaimed);
    if (earlier.size() > kMostEarlier) {
        earlier.erase(earlier.begin(), earlier.end() - static_cast<std::ptrdiff_t>(kMostEarlier));
    }
}

DeliveryRecord::DeliveryRecord(std::shared_ptr<FileSystem> files, std::shared_ptr<const ArchiveClasses> classes,
                               const std::string& directory)
    : files_(std::move(files)), classes_(std::move(classes)), path_(joinPath(directory, kFileName)) {}

Result<DeliveryRecord::Content> DeliveryRecord::decode() const {
    const Data bytes = TRY(files_->readFile(path_));
    const Object root =
        TRY(KeyedUnarchiver::unarchiveObjectWithData(bytes, *classes_, KeyedUnarchiver::OnRefusal::fail));
    const Dictionary* fields = root.dictionary();
    if (fields == nullptr || valueOfKey(*fields, Keys::version).integer() != kVersion) {
        return failure("record of deliveries", 0, {{"path", path_}, {"reason", "not of a known version"}});
    }
    Content content;
    content.recent = decodedDeliveries(valueOfKey(*fields, Keys::recent));
    content.earlier = decodedLines(valueOfKey(*fields, Keys::earlier).stringValue().value_or(""));
    content.fetched = valueOfKey(*fields, Keys::fetched).date();
    content.limit();
    return content;
}

Result<DeliveryRecord::Content> DeliveryRecord::read() const {
    if (!TRY(files_->status(path_))) return Content();
    auto content = decode();
    if (content) {
        isDamaged_ = false;
        return content;
    }
    // A device that cannot be read now may be read later: the file must not be taken for a broken one.
    if (content.error().domain == "file" && !unreadIsDamaged_) return content;
    if (!std::exchange(isDamaged_, true)) {
        logError("notifications: " + path_ + " is unreadable: " + content.error().description());
    }
    return Content();
}

Result<> DeliveryRecord::write(const Content& content) {
    Content kept = content;
    kept.limit();
    Array recent;
    for (const Delivery& delivery : kept.recent) recent.push_back(encoded(delivery));
    Dictionary fields{{Keys::version, kVersion}, {Keys::recent, std::move(recent)}, {Keys::earlier, lines(kept.earlier)}};
    if (kept.fetched) fields.emplace(Keys::fetched, *kept.fetched);
    const Data bytes = KeyedArchiver::archivedDataWithRootObject(fields);
    if (std::exchange(isDamaged_, false)) TRY_VOID(files_->rename(path_, unreadableCopyPath(path_, 1)));
    TRY_VOID(writeFileAtomically(*files_, path_, bytes));
    unreadIsDamaged_ = false;
    return {};
}

}  // namespace dayward

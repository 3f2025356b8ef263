#include "platform/NotificationArchive.h"

namespace dayward {

namespace {

constexpr const char* kFireDateKey = "fireDate";
constexpr const char* kTimeZoneKey = "timeZone";
constexpr const char* kAlertActionKey = "alertAction";
constexpr const char* kAlertBodyKey = "alertBody";
constexpr const char* kSoundNameKey = "soundName";
constexpr const char* kBadgeNumberKey = "applicationIconBadgeNumber";
constexpr const char* kUserInfoKey = "userInfo";

template <class T>
void put(Dictionary& dictionary, const char* key, const std::optional<T>& value) {
    if (value) dictionary.insert_or_assign(key, *value);
}

const Object& field(const Dictionary& dictionary, const char* key) {
    static const Object kNone;
    const auto found = dictionary.find(key);
    return found != dictionary.end() ? found->second : kNone;
}

}  // namespace

Object objectOfNotification(const LocalNotification& notification) {
    Dictionary object;
    put(object, kFireDateKey, notification.fireDate);
    put(object, kTimeZoneKey, notification.timeZone);
    put(object, kAlertActionKey, notification.alertAction);
    put(object, kAlertBodyKey, notification.alertBody);
    put(object, kSoundNameKey, notification.soundName);
    put(object, kBadgeNumberKey, notification.applicationIconBadgeNumber);
    if (!notification.userInfo.empty()) object.insert_or_assign(kUserInfoKey, notification.userInfo);
    return object;
}

std::optional<LocalNotification> notificationOfObject(const Object& object) {
    const Dictionary* dictionary = object.dictionary();
    if (dictionary == nullptr) return std::nullopt;
    LocalNotification notification;
    notification.fireDate = field(*dictionary, kFireDateKey).date();
    notification.timeZone = field(*dictionary, kTimeZoneKey).stringValue();
    notification.alertAction = field(*dictionary, kAlertActionKey).stringValue();
    notification.alertBody = field(*dictionary, kAlertBodyKey).stringValue();
    notification.soundName = field(*dictionary, kSoundNameKey).stringValue();
    notification.applicationIconBadgeNumber = field(*dictionary, kBadgeNumberKey).integer();
    if (const Dictionary* userInfo = field(*dictionary, kUserInfoKey).dictionary()) notification.userInfo = *userInfo;
    return notification;
}

}  // namespace dayward

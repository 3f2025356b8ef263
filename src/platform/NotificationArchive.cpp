#include "platform/NotificationArchive.h"

#include <cmath>

#include "platform/DictionaryValue.h"

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
    notification.fireDate = valueOfKey(*dictionary, kFireDateKey).date();
    if (notification.fireDate && !std::isfinite(notification.fireDate->secondsSinceReference())) return std::nullopt;
    notification.timeZone = valueOfKey(*dictionary, kTimeZoneKey).stringValue();
    notification.alertAction = valueOfKey(*dictionary, kAlertActionKey).stringValue();
    notification.alertBody = valueOfKey(*dictionary, kAlertBodyKey).stringValue();
    notification.soundName = valueOfKey(*dictionary, kSoundNameKey).stringValue();
    notification.applicationIconBadgeNumber = valueOfKey(*dictionary, kBadgeNumberKey).integer();
    const Dictionary* userInfo = valueOfKey(*dictionary, kUserInfoKey).dictionary();
    if (userInfo != nullptr) notification.userInfo = *userInfo;
    return notification;
}

}  // namespace dayward

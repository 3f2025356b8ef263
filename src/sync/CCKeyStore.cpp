#include "sync/CCKeyStore.h"

#include "platform/NotificationCenter.h"

namespace dayward {

namespace {

Array keyArray(const std::vector<std::string>& keys) { return Array(keys.begin(), keys.end()); }

}  // namespace

void CCKeyStore::postNotificationStoreDidRefresh() {
    notificationCenter().post(CCKeyStoreDidRefreshNotification, storeIdentity(*this));
}

void CCKeyStore::postNotificationStoreDidUpdate(const std::vector<std::string>& updatedKeys,
                                                const std::vector<std::string>& removedKeys) {
    if (updatedKeys.empty() && removedKeys.empty()) return;
    notificationCenter().post(
        CCKeyStoreDidUpdateNotification, storeIdentity(*this),
        {{CCKeyStoreUpdatedKey, keyArray(updatedKeys)}, {CCKeyStoreRemovedKey, keyArray(removedKeys)}});
}

}  // namespace dayward

// What every store tells about itself: its notifications. They go out on the thread of the change,
// with the store (storeIdentity) as their object and no lock held.
#pragma once

#include <string>
#include <vector>

namespace dayward {

/// The whole key list has been established or replaced. No user info.
inline constexpr const char* CCKeyStoreDidRefreshNotification = "CCKeyStoreDidRefreshNotification";
/// Keys changed. User info: both "updated" and "removed", always there, each an array of keys.
inline constexpr const char* CCKeyStoreDidUpdateNotification = "CCKeyStoreDidUpdateNotification";
inline constexpr const char* CCKeyStoreUpdatedKey = "updated";
inline constexpr const char* CCKeyStoreRemovedKey = "removed";

class NotificationCenter;

class CCKeyStore {
public:
    virtual ~CCKeyStore() = default;

    /// Posts CCKeyStoreDidRefreshNotification.
    virtual void postNotificationStoreDidRefresh();
    /// Posts CCKeyStoreDidUpdateNotification; nothing where both lists are empty.
    virtual void postNotificationStoreDidUpdate(const std::vector<std::string>& updatedKeys,
                                                const std::vector<std::string>& removedKeys);

protected:
    [[nodiscard]] virtual NotificationCenter& notificationCenter() const = 0;
};

/// The object of a store's notifications, whichever of its interfaces it is seen through: the address
/// of the whole object, so `&EventLocalStore::shared()` serves as well.
template <class Store>
const void* storeIdentity(const Store& store) {
    return dynamic_cast<const void*>(&store);
}

}  // namespace dayward

// The number on the application's icon in docks and task bars (com.canonical.Unity.LauncherEntry).
#pragma once

#include <cstdint>
#include <memory>

namespace sdbus {
class IObject;
}

namespace dayward {

class SessionBus;

class LauncherBadge {
public:
    /// The bus outlives it.
    explicit LauncherBadge(SessionBus& bus);
    ~LauncherBadge();
    LauncherBadge(const LauncherBadge&) = delete;
    LauncherBadge& operator=(const LauncherBadge&) = delete;

    /// 0 takes it away. It stays while this process is on the bus.
    void show(std::int64_t number);

private:
    std::unique_ptr<sdbus::IObject> object_;
};

}  // namespace dayward

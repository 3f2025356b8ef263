#include "agent/desktop/LauncherBadge.h"

#include "agent/desktop/BusCalls.h"
#include "platform/Log.h"

namespace dayward {

namespace {

constexpr const char* kInterface = "com.canonical.Unity.LauncherEntry";
constexpr const char* kPath = "/org/dayward/Dayward";
constexpr const char* kEntry = "application://org.dayward.Dayward.desktop";

}  // namespace

LauncherBadge::LauncherBadge(SessionBus& bus) : object_(sdbus::createObject(bus.connection(), kPath)) {}

LauncherBadge::~LauncherBadge() = default;

void LauncherBadge::show(std::int64_t number) {
    const std::map<std::string, sdbus::Variant> look{{"count", sdbus::Variant(number)},
                                                     {"count-visible", sdbus::Variant(number > 0)}};
    const auto sent = onBus("Update", [&] {
        object_->emitSignal("Update").onInterface(kInterface).withArguments(std::string(kEntry), look);
    });
    if (!sent) logDebug([&] { return sent.error().description(); });
}

}  // namespace dayward

// The names under which the programs of a home find each other on the session bus: each home has its own agent and
// its own application. Any thread.
#pragma once

#include <string>

namespace dayward {

/// The home as processes tell each other.
struct BusHome {
    std::string root;       ///< as it is given to a program; empty for the user's own
    std::string directory;  ///< its state directory, the same however the home was named

    /// Of the option "--home": empty is $DAYWARD_HOME or the user's own.
    static BusHome of(const std::string& option);
};

/// "org.dayward.Agent", which the bus can start; of another home than the user's own with a mark of the home.
std::string agentBusName(const BusHome& home);
/// "org.dayward.Dayward", likewise.
std::string applicationBusName(const BusHome& home);

namespace AgentObject {
inline constexpr const char* kPath = "/org/dayward/Agent";
inline constexpr const char* kInterface = "org.dayward.Agent1";
}  // namespace AgentObject

namespace NotificationsObject {
inline constexpr const char* kPath = "/org/dayward/Dayward/Notifications";
inline constexpr const char* kInterface = "org.dayward.Dayward.Notifications1";
}  // namespace NotificationsObject

}  // namespace dayward

#include "Classes/App/LaunchArguments.h"

#include "alerts/EventNotification.h"

namespace dayward {

Result<LaunchOptions> launchOptionsFromArguments(const std::vector<std::string>& arguments) {
    LaunchOptions options;
    for (auto argument = arguments.begin(); argument != arguments.end(); ++argument) {
        if (*argument == "--event") {
            if (++argument == arguments.end()) return failure("--event: an event's identifier is missing");
            setEventIdentifier(options.localNotification.emplace(), *argument);
        } else if (*argument == "--new-event") {
            options.newEvent = true;
        } else if (argument->find("://") != std::string::npos && !argument->starts_with("-")) {
            options.urls.push_back(*argument);
        } else {
            return failure("'" + *argument + "' is neither an option nor a URL");
        }
    }
    return options;
}

}  // namespace dayward

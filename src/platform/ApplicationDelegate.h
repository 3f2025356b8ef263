// What the platform calls as the application lives. Main thread only.
#pragma once

#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "platform/Application.h"

namespace dayward {

/// Why the program was started, or started again.
struct LaunchOptions {
    std::optional<LocalNotification> localNotification;  ///< the one that the user tapped
    std::vector<std::string> urls;                       ///< to be opened
    bool newEvent = false;                               ///< a new event is to be made
};

class ApplicationDelegate {
public:
    using FetchCompletion = std::function<void(BackgroundFetchResult)>;

    virtual ~ApplicationDelegate() = default;

    /// Once, before everything else. The URLs of the options follow by openURL().
    virtual bool didFinishLaunchingWithOptions(Application& application, const LaunchOptions& options) = 0;
    virtual void applicationDidBecomeActive(Application& application) = 0;
    virtual void applicationDidEnterBackground(Application& application) = 0;
    virtual void applicationWillEnterForeground(Application& application) = 0;
    /// In the state inactive the user tapped it; in the others it has just fired.
    virtual void didReceiveLocalNotification(Application& application, const LocalNotification& notification) = 0;
    /// False where nobody knows such URLs.
    virtual bool openURL(Application& application, const std::string& url) = 0;
    /// The completion is called once, on any thread.
    virtual void performFetchWithCompletionHandler(Application& application, FetchCompletion completionHandler) = 0;
};

}  // namespace dayward

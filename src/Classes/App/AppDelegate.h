// What this program adds to the life of its family: its identity, its root screen, the cover that hides
// the window while the lock is on, and the widget's copy of the events. Main thread.
#pragma once

#include <functional>

#include "Classes/App/ProjectAppDelegate.h"
#include "platform/Color.h"

namespace dayward {

class ViewController;

class AppDelegate final : public ProjectAppDelegate {
public:
    /// Makes the root of the root stack, which the list is.
    using MakeRootScreen = std::function<std::shared_ptr<ViewController>()>;

    AppDelegate(AppServices services, MakeRootScreen makeRootScreen)
        : ProjectAppDelegate(std::move(services)), makeRootScreen_(std::move(makeRootScreen)) {}

    bool didFinishLaunchingWithOptions(Application& application, const LaunchOptions& options) override;
    void applicationDidBecomeActive(Application& application) override;
    void applicationDidEnterBackground(Application& application) override;
    void applicationWillEnterForeground(Application& application) override;
    /// New data also goes to the widget's copy, on the fetch's thread.
    void performFetchWithCompletionHandler(Application& application, FetchCompletion completionHandler) override;

private:
    const MakeRootScreen makeRootScreen_;
    const Color securityView_ = Color::white();  ///< the cover, which is plain
};

}  // namespace dayward

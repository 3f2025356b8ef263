// The program's window: the root screen, when it comes into sight, and what lies over everything. Whoever
// draws the window implements the rest. Main thread only.
#pragma once

#include <memory>
#include <optional>

#include "platform/Color.h"

namespace dayward {

class Navigation;
class ViewController;

class Window {
public:
    /// The navigation is not owned.
    explicit Window(Navigation& navigation) : navigation_(navigation) {}
    virtual ~Window() = default;
    Window(const Window&) = delete;
    Window& operator=(const Window&) = delete;

    [[nodiscard]] Navigation& navigation() const { return navigation_; }
    /// The screen becomes the root of the navigation when the window is visible: it does not appear before.
    void setRootViewController(std::shared_ptr<ViewController> screen);
    [[nodiscard]] const std::shared_ptr<ViewController>& rootViewController() const { return root_; }
    void makeKeyAndVisible();

    /// What is seen where no screen draws.
    virtual void setBackgroundColor(Color color) = 0;
    /// A plain cover over all that the window shows, its sheets and questions too; nothing takes it away.
    virtual void setCover(std::optional<Color> color) = 0;

protected:
    /// Puts the window on the display, above the others.
    virtual void show() = 0;

private:
    Navigation& navigation_;
    std::shared_ptr<ViewController> root_;
    bool isVisible_ = false;
};

}  // namespace dayward

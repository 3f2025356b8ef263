// How a screen asks its surroundings: other screens, questions to the user, pictures.
//
// A request that names a screen acts on the stack that holds it, and does nothing where none does.
// Requests that change what is shown may come at any moment, from a screen's life as well: one is
// carried out whole before the next. Main thread only.
#pragma once

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "platform/Data.h"
#include "platform/Date.h"

namespace dayward {

class ViewController;

struct AlertButton {
    enum class Role { normal, cancel, destructive };
    std::string title;
    Role role = Role::normal;
    std::function<void()> action = {};  ///< may be empty
};

/// A question; it goes with the press of any of its buttons.
struct Alert {
    std::string title;
    std::string message;
    std::vector<AlertButton> buttons;
    std::string name = {};  ///< for dismissAlert()
};

/// A word in passing, such as "Copied", or what can still be taken back, "Deleted" with "Undo". A new one
/// takes the place of the one that is shown.
struct Notice {
    std::string text;
    std::string actionTitle = {};  ///< empty where nothing can be done
    std::function<void()> action = {};
    TimeInterval shownFor{3};
};

/// A picture file of the user's: its bytes as they stand, and its name or link.
struct ChosenPicture {
    Data bytes;
    std::string source;
};

class Presenter {
public:
    using Screen = std::shared_ptr<ViewController>;

    virtual ~Presenter() = default;

    /// Puts a screen over the top of the stack that holds `from`.
    virtual void push(ViewController& from, Screen screen) = 0;
    /// Takes the screen and all above it out of its stack. The root of the root stack and of the detail
    /// pane stay; the root of a modal stack takes the stack with it.
    virtual void pop(ViewController& screen) = 0;
    /// Puts a screen over everything, as the root of a stack of its own.
    virtual void present(Screen root) = 0;
    /// Takes away the modal stack that holds the screen and those above it.
    virtual void dismiss(ViewController& screen) = 0;
    /// Shows a small screen at the bottom of `from`, which stays in sight. It goes with its own
    /// dismissPanel, with another panel, and when the stack changes.
    virtual void presentPanel(ViewController& from, Screen panel) = 0;
    virtual void dismissPanel(ViewController& panel) = 0;

    /// Whether the window is wide enough for the list and the detail side by side.
    [[nodiscard]] virtual bool hasDetailPane() const = 0;
    /// Makes the screen the only one of the detail pane.
    virtual void showDetail(Screen screen) = 0;

    virtual void alert(Alert alert) = 0;
    /// Takes away the alerts of that name that are still shown; none of their buttons counts as pressed.
    virtual void dismissAlert(const std::string& name) = 0;
    virtual void showNotice(Notice notice) = 0;
    /// Lets the user choose a picture file. The completion is not called where the user chooses none.
    virtual void choosePicture(std::function<void(ChosenPicture)> completion) = 0;
    virtual void openLink(const std::string& url) = 0;
};

}  // namespace dayward

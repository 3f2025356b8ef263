// A screen as logic: its title, its bar buttons and its life, without a toolkit.
//
// Whoever shows it (Navigation) drives its life: loaded once, then any number of appearances, each
// viewWillAppear, viewDidAppear, viewWillDisappear, viewDidDisappear in this order. Screens are owned
// by the stack that holds them. Main thread only.
#pragma once

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "Classes/Interface/Screens/BarButton.h"

namespace dayward {

class Presenter;

/// Why a screen goes out of sight.
enum class Disappearance {
    covered,  ///< another screen stands over it; it will be back
    leaving,  ///< it no longer stands in a stack
};

/// Who draws a screen is told when its bar is another one.
class ViewControllerObserver {
public:
    virtual ~ViewControllerObserver() = default;
    virtual void barDidChange() = 0;
};

class ViewController : public std::enable_shared_from_this<ViewController> {
public:
    ViewController() = default;
    virtual ~ViewController() = default;
    ViewController(const ViewController&) = delete;
    ViewController& operator=(const ViewController&) = delete;

    [[nodiscard]] const std::string& title() const { return title_; }
    [[nodiscard]] const std::vector<BarButton>& barButtons() const { return barButtons_; }
    /// Does what the button of that role does; false where there is none, it is
    /// disabled or the screen stands in no stack any more.
    bool press(BarButton::Role role);

    /// Not owned. The last one counts: a screen that changes its stack is drawn anew before the old drawing goes.
    void setObserver(ViewControllerObserver* observer) { observer_ = observer; }
    /// Nothing where another one has come since.
    void removeObserver(const ViewControllerObserver* observer) {
        if (observer_ == observer) observer_ = nullptr;
    }

    /// Whether it stands in the detail pane of a wide window, and on the root stack of a narrow one.
    [[nodiscard]] virtual bool belongsInDetailPane() const { return false; }
    /// Whether there is something to see; an empty detail pane needs no screen of its own.
    [[nodiscard]] virtual bool hasContent() const { return true; }

    // Its life. Overriding functions call the base's first.

    /// Before its first appearance.
    virtual void viewDidLoad() {}
    virtual void viewWillAppear() {}
    virtual void viewDidAppear() {}
    /// On leaving, it has already been taken out of its stack and can still ask its presenter.
    virtual void viewWillDisappear(Disappearance) {}
    virtual void viewDidDisappear(Disappearance) {}
    /// The detail pane came or went.
    virtual void detailPaneDidChange() {}

    /// Set by the presenter while the screen stands in one of its stacks.
    void setPresenter(Presenter* presenter) { presenter_ = presenter; }
    [[nodiscard]] bool isPresented() const { return presenter_ != nullptr; }
    /// Loads it unless it is loaded.
    void loadIfNeeded();

protected:
    void setTitle(std::string title);
    void setBarButtons(std::vector<BarButton> buttons);
    /// What it asks its surroundings through. Stops the process where it stands in no stack.
    [[nodiscard]] Presenter& presenter() const;

private:
    std::string title_;
    std::vector<BarButton> barButtons_;
    ViewControllerObserver* observer_ = nullptr;
    Presenter* presenter_ = nullptr;
    bool isLoaded_ = false;
};

}  // namespace dayward

// Which screens are where: the root stack, the detail pane and the modal stacks. Drives the screens'
// life in one order, whoever draws them, and tells one listener what changed.
//
// One change runs like this: the stacks change; new screens are loaded; those that go out of sight get
// viewWillDisappear, those that come into sight viewWillAppear; the listener is told; then
// viewDidDisappear and viewDidAppear. A change that a screen asks for meanwhile follows when that one
// is done. In sight are the tops of the uppermost stack and its panel; in a window with a detail pane
// the root and the detail pane are in sight side by side, and modal stacks are sheets which leave what
// is under them in sight. A screen that leaves while it is out of sight just goes. Main thread only.
#pragma once

#include <deque>
#include <functional>
#include <memory>
#include <vector>

#include "Classes/Interface/Screens/Presenter.h"
#include "Classes/Interface/Screens/ViewController.h"

namespace dayward {

/// Names a stack for as long as it is there.
enum class StackId : std::size_t { root = 0, detail = 1, firstModal = 2 };

class NavigationListener {
public:
    using Screen = Presenter::Screen;

    virtual ~NavigationListener() = default;

    // The screens of a stack, read from the navigation, are already the new ones.
    virtual void didPush(StackId stack, const Screen& screen) = 0;
    virtual void didPop(StackId stack, const Screen& screen) = 0;
    virtual void didPresent(StackId stack, const Screen& root) = 0;
    virtual void didDismiss(StackId stack, const Screen& root) = 0;
    virtual void didShowPanel(StackId stack, const Screen& panel) = 0;
    virtual void didHidePanel(StackId stack, const Screen& panel) = 0;
    /// Screens moved between the root stack and the detail pane, or the detail pane has another root.
    virtual void didArrange() = 0;

    virtual void showAlert(Alert alert) = 0;
    virtual void dismissAlert(const std::string& name) = 0;
    virtual void showNotice(Notice notice) = 0;
    virtual void choosePicture(std::function<void(ChosenPicture)> completion) = 0;
    virtual void openLink(const std::string& url) = 0;
};

class Navigation final : public Presenter {
public:
    /// The listener is not owned.
    explicit Navigation(NavigationListener& listener) : listener_(listener) {}
    ~Navigation() override;
    Navigation(const Navigation&) = delete;
    Navigation& operator=(const Navigation&) = delete;

    /// Makes the screen the root of the root stack; the beginning of everything.
    void setRoot(Screen screen);
    /// The window became wide enough for two columns, or no longer is. Screens that belong in the
    /// detail pane, and those pushed over them, move; an empty detail stays out of a narrow window.
    void setHasDetailPane(bool has);
    /// The user's Back or Escape in a stack: closes its panel, else pops its top, else presses Cancel or
    /// Done of a modal root or dismisses it, or presses Done of another root. False where there is nothing
    /// to go back from.
    bool goBack(StackId stack);
    /// The same in the uppermost stack where there is something to go back from.
    bool goBack();

    [[nodiscard]] const std::vector<Screen>& screens(StackId stack) const;
    /// Null where there is none.
    [[nodiscard]] Screen panel(StackId stack) const;
    /// The modal stacks, the uppermost last.
    [[nodiscard]] std::vector<StackId> modalStacks() const;
    /// The top of the uppermost stack, its panel before it; of the root stack beside a detail pane.
    [[nodiscard]] Screen topScreen() const;

    // Presenter
    void push(ViewController& from, Screen screen) override;
    void pop(ViewController& screen) override;
    void present(Screen root) override;
    void dismiss(ViewController& screen) override;
    void presentPanel(ViewController& from, Screen panel) override;
    void dismissPanel(ViewController& panel) override;
    [[nodiscard]] bool hasDetailPane() const override { return hasDetailPane_; }
    void showDetail(Screen screen) override;
    void alert(Alert alert) override { listener_.showAlert(std::move(alert)); }
    void dismissAlert(const std::string& name) override { listener_.dismissAlert(name); }
    void showNotice(Notice notice) override { listener_.showNotice(std::move(notice)); }
    void choosePicture(std::function<void(ChosenPicture)> completion) override {
        listener_.choosePicture(std::move(completion));
    }
    void openLink(const std::string& url) override { listener_.openLink(url); }

private:
    using Screens = std::vector<Screen>;
    struct Stack {
        StackId id;
        Screens screens;
        Screen panel;
    };
    using Message = std::function<void(NavigationListener&)>;

    void change(std::function<void()> mutate);
    void carryOut(const std::function<void()>& mutate);
    [[nodiscard]] Screens visibleScreens() const;
    [[nodiscard]] Screens allScreens() const;
    [[nodiscard]] Stack* stackOf(const ViewController& screen);
    [[nodiscard]] const Stack* stackWithId(StackId id) const;
    void tell(Message message) { messages_.push_back(std::move(message)); }
    void popFrom(Stack& stack, std::size_t index);
    void hidePanel(Stack& stack);
    void dismissFrom(std::size_t index);
    void moveDetailToRoot();
    void moveRootToDetail();

    NavigationListener& listener_;
    std::deque<Stack> stacks_{{StackId::root, {}, {}}, {StackId::detail, {}, {}}};  ///< then the modal ones
    std::size_t nextId_ = static_cast<std::size_t>(StackId::firstModal);
    bool hasDetailPane_ = false;
    bool isChanging_ = false;
    std::deque<std::function<void()>> waiting_;
    std::vector<Message> messages_;
};

}  // namespace dayward

#include "Classes/Interface/Screens/Navigation.h"

#include <algorithm>
#include <utility>

namespace dayward {

namespace {

constexpr std::size_t kRoot = 0;
constexpr std::size_t kDetail = 1;
constexpr std::size_t kFirstModal = 2;

bool holds(const std::vector<Presenter::Screen>& screens, const Presenter::Screen& screen) {
    return std::ranges::find(screens, screen) != screens.end();
}

std::vector<Presenter::Screen> difference(const std::vector<Presenter::Screen>& of,
                                          const std::vector<Presenter::Screen>& without) {
    std::vector<Presenter::Screen> left;
    std::ranges::copy_if(of, std::back_inserter(left), [&](const auto& screen) { return !holds(without, screen); });
    return left;
}

}  // namespace

Navigation::~Navigation() {
    for (const Screen& screen : allScreens()) screen->setPresenter(nullptr);
}

void Navigation::setRoot(Screen screen) {
    change([this, screen = std::move(screen)] {
        stacks_[kRoot].screens = {screen};
        tell([screen](NavigationListener& listener) { listener.didPush(StackId::root, screen); });
    });
}

void Navigation::push(ViewController& from, Screen screen) {
    change([this, held = from.weak_from_this(), screen = std::move(screen)] {
        const Screen below = held.lock();
        Stack* stack = below ? stackOf(*below) : nullptr;
        if (stack == nullptr) return;
        hidePanel(*stack);
        stack->screens.push_back(screen);
        tell([id = stack->id, screen](NavigationListener& listener) { listener.didPush(id, screen); });
    });
}

void Navigation::pop(ViewController& screen) {
    change([this, held = screen.weak_from_this()] {
        const Screen leaving = held.lock();
        Stack* stack = leaving ? stackOf(*leaving) : nullptr;
        if (stack == nullptr) return;
        const auto place = std::ranges::find(stack->screens, leaving);
        if (place == stack->screens.end()) return;
        popFrom(*stack, static_cast<std::size_t>(place - stack->screens.begin()));
    });
}

void Navigation::popFrom(Stack& stack, std::size_t index) {
    if (index == 0) {
        const auto place = std::ranges::find(stacks_, stack.id, &Stack::id) - stacks_.begin();
        if (static_cast<std::size_t>(place) >= kFirstModal) dismissFrom(static_cast<std::size_t>(place));
        return;
    }
    hidePanel(stack);
    while (stack.screens.size() > index) {
        tell([id = stack.id, screen = stack.screens.back()](NavigationListener& listener) {
            listener.didPop(id, screen);
        });
        stack.screens.pop_back();
    }
}

void Navigation::present(Screen root) {
    change([this, root = std::move(root)] {
        const auto id = static_cast<StackId>(nextId_++);
        stacks_.push_back({id, {root}, {}});
        tell([id, root](NavigationListener& listener) { listener.didPresent(id, root); });
    });
}

void Navigation::dismiss(ViewController& screen) {
    change([this, held = screen.weak_from_this()] {
        const Screen leaving = held.lock();
        const Stack* stack = leaving ? stackOf(*leaving) : nullptr;
        if (stack == nullptr) return;
        const auto place = std::ranges::find(stacks_, stack->id, &Stack::id) - stacks_.begin();
        if (static_cast<std::size_t>(place) >= kFirstModal) dismissFrom(static_cast<std::size_t>(place));
    });
}

void Navigation::dismissFrom(std::size_t index) {
    while (stacks_.size() > index) {
        hidePanel(stacks_.back());
        tell([id = stacks_.back().id, root = stacks_.back().screens.front()](NavigationListener& listener) {
            listener.didDismiss(id, root);
        });
        stacks_.pop_back();
    }
}

void Navigation::presentPanel(ViewController& from, Screen panel) {
    change([this, held = from.weak_from_this(), panel = std::move(panel)] {
        const Screen owner = held.lock();
        Stack* stack = owner ? stackOf(*owner) : nullptr;
        if (stack == nullptr || stack->screens.back() != owner) return;
        hidePanel(*stack);
        stack->panel = panel;
        tell([id = stack->id, panel](NavigationListener& listener) { listener.didShowPanel(id, panel); });
    });
}

void Navigation::dismissPanel(ViewController& panel) {
    change([this, held = panel.weak_from_this()] {
        const Screen leaving = held.lock();
        Stack* stack = leaving ? stackOf(*leaving) : nullptr;
        if (stack != nullptr && stack->panel == leaving) hidePanel(*stack);
    });
}

void Navigation::hidePanel(Stack& stack) {
    if (!stack.panel) return;
    tell([id = stack.id, panel = stack.panel](NavigationListener& listener) { listener.didHidePanel(id, panel); });
    stack.panel.reset();
}

void Navigation::showDetail(Screen screen) {
    change([this, screen = std::move(screen)] {
        hidePanel(stacks_[kDetail]);
        stacks_[kDetail].screens = {screen};
        tell([](NavigationListener& listener) { listener.didArrange(); });
    });
}

void Navigation::setHasDetailPane(bool has) {
    if (has == hasDetailPane_) return;
    change([this, has] {
        hasDetailPane_ = has;
        hidePanel(stacks_[kRoot]);
        hidePanel(stacks_[kDetail]);
        has ? moveRootToDetail() : moveDetailToRoot();
        tell([](NavigationListener& listener) { listener.didArrange(); });
    });
    change([this] {
        for (const Screen& screen : allScreens()) screen->detailPaneDidChange();
    });
}

void Navigation::moveRootToDetail() {
    Screens& root = stacks_[kRoot].screens;
    const auto first = std::ranges::find_if(root, [](const Screen& screen) { return screen->belongsInDetailPane(); });
    if (first == root.end()) return;
    stacks_[kDetail].screens.assign(first, root.end());
    root.erase(first, root.end());
}

void Navigation::moveDetailToRoot() {
    Screens& detail = stacks_[kDetail].screens;
    if (detail.empty() || !detail.front()->hasContent()) return;
    Screens& root = stacks_[kRoot].screens;
    root.insert(root.end(), detail.begin(), detail.end());
    detail.clear();
}

bool Navigation::goBack(StackId id) {
    const Stack* stack = stackWithId(id);
    if (stack == nullptr || stack->screens.empty()) return false;
    if (stack->panel) {
        dismissPanel(*stack->panel);
        return true;
    }
    const Screen top = stack->screens.back();
    if (stack->screens.size() > 1) {
        pop(*top);
        return true;
    }
    if (id < StackId::firstModal) return top->press(BarButton::Role::done);
    if (!top->press(BarButton::Role::cancel) && !top->press(BarButton::Role::done)) dismiss(*top);
    return true;
}

bool Navigation::goBack() {
    if (stacks_.size() > kFirstModal) return goBack(stacks_.back().id);
    return (hasDetailPane_ && goBack(StackId::detail)) || goBack(StackId::root);
}

const std::vector<Presenter::Screen>& Navigation::screens(StackId stack) const {
    static const Screens kNone;
    const Stack* found = stackWithId(stack);
    return found != nullptr ? found->screens : kNone;
}

Presenter::Screen Navigation::panel(StackId stack) const {
    const Stack* found = stackWithId(stack);
    return found != nullptr ? found->panel : nullptr;
}

std::vector<StackId> Navigation::modalStacks() const {
    std::vector<StackId> ids;
    for (std::size_t index = kFirstModal; index < stacks_.size(); ++index) ids.push_back(stacks_[index].id);
    return ids;
}

Presenter::Screen Navigation::topScreen() const {
    const Stack& stack = stacks_.size() > kFirstModal ? stacks_.back() : stacks_[kRoot];
    if (stack.panel) return stack.panel;
    return stack.screens.empty() ? nullptr : stack.screens.back();
}

void Navigation::change(std::function<void()> mutate) {
    waiting_.push_back(std::move(mutate));
    if (isChanging_) return;
    isChanging_ = true;
    while (!waiting_.empty()) {
        const auto next = std::move(waiting_.front());
        waiting_.pop_front();
        carryOut(next);
    }
    isChanging_ = false;
}

void Navigation::carryOut(const std::function<void()>& mutate) {
    const Screens held = allScreens();
    const Screens before = visibleScreens();
    mutate();
    const Screens present = allScreens();
    const Screens going = difference(before, visibleScreens());
    const Screens coming = difference(visibleScreens(), before);
    const auto reason = [&](const Screen& screen) {
        return holds(present, screen) ? Disappearance::covered : Disappearance::leaving;
    };
    for (const Screen& screen : present) screen->setPresenter(this);
    for (const Screen& screen : coming) screen->loadIfNeeded();
    for (const Screen& screen : going) screen->viewWillDisappear(reason(screen));
    for (const Screen& screen : coming) screen->viewWillAppear();
    for (const Message& message : std::exchange(messages_, {})) message(listener_);
    for (const Screen& screen : going) screen->viewDidDisappear(reason(screen));
    for (const Screen& screen : coming) screen->viewDidAppear();
    for (const Screen& screen : difference(held, present)) screen->setPresenter(nullptr);
}

std::vector<Presenter::Screen> Navigation::visibleScreens() const {
    Screens visible;
    const auto add = [&](const Stack& stack) {
        if (!stack.screens.empty()) visible.push_back(stack.screens.back());
        if (stack.panel) visible.push_back(stack.panel);
    };
    if (hasDetailPane_) {
        for (const Stack& stack : stacks_) add(stack);
    } else {
        add(stacks_.size() > kFirstModal ? stacks_.back() : stacks_[kRoot]);
    }
    return visible;
}

std::vector<Presenter::Screen> Navigation::allScreens() const {
    Screens all;
    for (const Stack& stack : stacks_) {
        all.insert(all.end(), stack.screens.begin(), stack.screens.end());
        if (stack.panel) all.push_back(stack.panel);
    }
    return all;
}

Navigation::Stack* Navigation::stackOf(const ViewController& screen) {
    const auto found = std::ranges::find_if(stacks_, [&](const Stack& stack) {
        return stack.panel.get() == &screen ||
               std::ranges::any_of(stack.screens, [&](const Screen& held) { return held.get() == &screen; });
    });
    return found != stacks_.end() ? &*found : nullptr;
}

const Navigation::Stack* Navigation::stackWithId(StackId id) const {
    const auto found = std::ranges::find(stacks_, id, &Stack::id);
    return found != stacks_.end() ? &*found : nullptr;
}

}  // namespace dayward

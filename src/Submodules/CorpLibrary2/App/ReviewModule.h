// When the user may be asked to review the program: a switch, off by default, and two questions that
// the program answers. Class operations act on the current environment; main thread.
#pragma once

#include <functional>

namespace dayward {

class Environment;

class ReviewModule {
public:
    struct Hooks {
        std::function<bool()> reviewAvailable;
        std::function<bool()> canShowReviewRequest;
    };

    static bool isOn();
    static void setOn(bool on);
    static void setHooks(Hooks hooks);
    /// The program's answers; false before the hooks are set.
    static bool reviewAvailable();
    static bool canShowReviewRequest();

    explicit ReviewModule(Environment&) {}

private:
    static ReviewModule& shared();

    bool isOn_ = false;
    Hooks hooks_;
};

}  // namespace dayward

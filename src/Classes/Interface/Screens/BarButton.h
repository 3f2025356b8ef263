// A button in a screen's bar. A plain value and what it does.
#pragma once

#include <functional>
#include <string>

namespace dayward {

struct BarButton {
    /// What it is for; a shell picks place and picture by it. A screen has at most one of a role.
    enum class Role { cancel, done, edit, add, sort, info, share, remove, today };

    Role role = Role::done;
    std::string label;  ///< localised; what is spoken where only a picture is shown
    std::function<void()> action;
    bool enabled = true;
};

}  // namespace dayward

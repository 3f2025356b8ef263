// A tour of the screens, as a user goes who opens every row that can be opened. Main thread only.
#pragma once

#include <functional>

namespace dayward {

class Shell;

/// Has the topmost screen looked at, every screen that is reached from it by its rows, and each of them again
/// with a row opened in place. Ends where it began, with the rows left open.
void tourScreens(Shell& shell, const std::function<void()>& look);

}  // namespace dayward

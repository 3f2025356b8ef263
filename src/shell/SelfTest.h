// Loads every QML file and every screen with real data, to see that all of it can be drawn.
#pragma once

namespace dayward {

class Environment;

/// Writes each fault, a warning of QML among them, to standard error. Main thread.
bool passesSelfTest(Environment& environment);

}  // namespace dayward

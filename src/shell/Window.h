// The application's window over a shell: loads the QML module and shows it. Main thread only.
#pragma once

#include <QQmlApplicationEngine>

#include "platform/Environment.h"
#include "shell/Appearance.h"
#include "shell/Shell.h"

class QQuickWindow;

namespace dayward {

/// What has to be said before the first object of Qt's is made.
void prepareQt();

class Window {
public:
    /// Loads the window. The environment is current and outlives it.
    explicit Window(Environment& environment);
    ~Window();
    Window(const Window&) = delete;
    Window& operator=(const Window&) = delete;

    /// Null where the QML could not be loaded, which is written to standard error.
    [[nodiscard]] QQuickWindow* quickWindow() const;
    [[nodiscard]] QQmlApplicationEngine& engine() { return engine_; }
    [[nodiscard]] Shell& shell() { return shell_; }
    [[nodiscard]] Appearance& appearance() { return appearance_; }

private:
    Appearance appearance_;
    Shell shell_;
    QQmlApplicationEngine engine_;
};

}  // namespace dayward

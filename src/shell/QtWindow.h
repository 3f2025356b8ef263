// The application's window: loads the QML module over a shell and shows it. Main thread only.
#pragma once

#include <QQmlApplicationEngine>

#include "Classes/Interface/Screens/Window.h"
#include "shell/Appearance.h"
#include "shell/Shell.h"

class QQuickWindow;

namespace dayward {

class Environment;

/// What has to be said before the first object of Qt's is made.
void prepareQt();

class QtWindow final : public Window {
public:
    /// Loads the window without showing it. The environment is current; it and the shell outlive the window.
    QtWindow(Environment& environment, Shell& shell);
    ~QtWindow() override;

    /// Null where the QML could not be loaded, which is written to standard error.
    [[nodiscard]] QQuickWindow* quickWindow() const;
    [[nodiscard]] QQmlApplicationEngine& engine() { return engine_; }
    [[nodiscard]] Appearance& appearance() { return appearance_; }
    /// Shows it above the others; one that was minimised too.
    void raise() { show(); }

    void setBackgroundColor(Color color) override;
    void setCover(std::optional<Color> color) override;

protected:
    void show() override;

private:
    void collectAfterFirstFrame();

    Shell& shell_;
    Appearance appearance_;
    QQmlApplicationEngine engine_;
};

}  // namespace dayward

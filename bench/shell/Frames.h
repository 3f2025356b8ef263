// Draws the frames of a window one by one and tells what each cost the thread of the interface. Under
// Qt Quick's software renderer, which draws on that thread.
#pragma once

#include <QCoreApplication>
#include <QQuickWindow>
#include <functional>

#include "shell/Moments.h"

namespace dayward::bench {

/// The processor's time, in nanoseconds.
struct Frame {
    long long own = 0;    ///< from the change to the moment at which the scene is handed to the renderer
    long long whole = 0;  ///< until it is on the display
};

class Frames {
public:
    explicit Frames(QQuickWindow& window) : window_(window) {
        QObject::connect(&window, &QQuickWindow::afterAnimating, &context_, [this] { ready_ = threadNanoseconds(); });
        QObject::connect(&window, &QQuickWindow::frameSwapped, &context_, [this] { shown_ = threadNanoseconds(); });
    }

    /// Makes the change and draws what follows of it.
    Frame draw(const std::function<void()>& change) {
        shown_ = 0;
        const long long begin = threadNanoseconds();
        change();
        window_.update();
        while (shown_ == 0) QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
        return {ready_ - begin, shown_ - begin};
    }

private:
    QQuickWindow& window_;
    QObject context_;
    long long ready_ = 0, shown_ = 0;
};

}  // namespace dayward::bench

// shell_floor start: a window of the same style with nothing in it; prints when its first frame was on the
// display, and how much memory is in use a little later.
// shell_floor tick COUNT: a window with twenty bare texts that all change COUNT times; prints the processor's
// time of each, from the change to the frame.
#include <QGuiApplication>
#include <QQmlApplicationEngine>
#include <QQuickStyle>
#include <QQuickWindow>
#include <QTimer>
#include <cstdlib>
#include <iostream>
#include <string>

#include "shell/Frames.h"
#include "shell/Moments.h"

namespace {

using namespace dayward;

constexpr const char* kEmptyWindow = R"(
import QtQuick
import QtQuick.Controls
ApplicationWindow { width: 420; height: 860; visible: true }
)";

constexpr const char* kTexts = R"(
import QtQuick
import QtQuick.Controls
ApplicationWindow {
    id: window
    property int number: 10
    width: 420; height: 1900; visible: true
    Column {
        Repeater {
            model: 20
            Text { required property int index; height: 84; text: index + " Days " + window.number + " Seconds" }
        }
    }
}
)";

int showStart(QQuickWindow& window) {
    QObject::connect(&window, &QQuickWindow::frameSwapped, &window, [isShown = false, &window]() mutable {
        if (std::exchange(isShown, true)) return;
        std::cout << bench::presentNanoseconds() << std::endl;
        QMetaObject::invokeMethod(&window, [] {
            QTimer::singleShot(1500, [] {
                std::cout << bench::residentBytes() << std::endl;
                std::_Exit(0);
            });
        });
    }, Qt::DirectConnection);
    return QGuiApplication::exec();
}

int showTicks(QQuickWindow& window, int count) {
    bench::Frames frames(window);
    frames.draw([] {});
    for (int tick = 0; tick < count; ++tick) {
        const auto frame = frames.draw([&] { window.setProperty("number", 10 + tick % 50); });
        std::cout << frame.whole << "\n";
    }
    return 0;
}

}  // namespace

int main(int argc, char** argv) {
    QQuickStyle::setStyle(QStringLiteral("Material"));
    const QGuiApplication application(argc, argv);
    const bool isTick = argc == 3 && std::string(argv[1]) == "tick";
    QQmlApplicationEngine engine;
    engine.loadData(isTick ? kTexts : kEmptyWindow);
    auto* const window = qobject_cast<QQuickWindow*>(engine.rootObjects().value(0));
    if (window == nullptr) return 1;
    return isTick ? showTicks(*window, std::atoi(argv[2])) : showStart(*window);
}

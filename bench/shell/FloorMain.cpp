// shell_floor start: a window of the same style with nothing in it; prints when its first frame was on the
// display, and how much memory is in use a little later.
// shell_floor tick COUNT: a window with twenty bare texts that all change COUNT times; prints the processor's
// time of each, from the change to the frame.
// shell_floor pauses MILLISECONDS: a thread that only reads the clock of its own time for so long; prints each step of
// that clock over a millisecond, which is what the machine took.
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

int showPauses(long long milliseconds) {
    constexpr long long kMillisecond = 1000000;
    const long long end = bench::threadNanoseconds() + milliseconds * kMillisecond;
    for (long long before = bench::threadNanoseconds(); before < end;) {
        const long long present = bench::threadNanoseconds();
        if (present - before > kMillisecond) std::cout << present - before << "\n";
        before = present;
    }
    return 0;
}

}  // namespace

int main(int argc, char** argv) {
    if (argc == 3 && std::string(argv[1]) == "pauses") return showPauses(std::atoll(argv[2]));
    QQuickStyle::setStyle(QStringLiteral("Material"));
    const QGuiApplication application(argc, argv);
    const bool isTick = argc == 3 && std::string(argv[1]) == "tick";
    QQmlApplicationEngine engine;
    engine.loadData(isTick ? kTexts : kEmptyWindow);
    auto* const window = qobject_cast<QQuickWindow*>(engine.rootObjects().value(0));
    if (window == nullptr) return 1;
    return isTick ? showTicks(*window, std::atoi(argv[2])) : showStart(*window);
}

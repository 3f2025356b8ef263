// shell_frames HOME tick COUNT: so many seconds of a list with twenty rows in sight, each counting seconds.
// shell_frames HOME fling PIXELS: the list moves by so many pixels a frame, from its first row to its last.
// Prints a line for each frame: our share and the whole, in nanoseconds of the processor's time.
#include <QElapsedTimer>
#include <QGuiApplication>
#include <QQuickItem>
#include <cstdlib>
#include <iostream>
#include <string>
#include <vector>

#include "Classes/App/HHAppTimerKeys.h"
#include "Classes/Interface/Events/HHSplitViewController.h"
#include "platform/Clock.h"
#include "platform/NotificationCenter.h"
#include "shell/Frames.h"
#include "shell/QtMainLoop.h"
#include "shell/QtWindow.h"
#include "shell/ShellHome.h"

namespace {

using namespace dayward;

constexpr int kWidth = 420, kHeight = 860;
constexpr int kHeightForTwentyRows = 1900;
constexpr long long kMillisecondsToRest = 1500;

class List {
public:
    List(Environment& environment, int height)
        : shell_(environment), window_(environment, shell_), split_(shell_.navigation()) {
        window_.quickWindow()->resize(kWidth, height);
        window_.setRootViewController(split_.master());
        window_.makeKeyAndVisible();
        frames_ = std::make_unique<bench::Frames>(*window_.quickWindow());
        for (QElapsedTimer time = started(); time.elapsed() < kMillisecondsToRest;) frames_->draw([] {});
        view_ = viewIn(*window_.quickWindow()->contentItem());
        if (view_ == nullptr) std::abort();
    }

    [[nodiscard]] QQuickItem& view() { return *view_; }
    bench::Frame draw(const std::function<void()>& change) { return frames_->draw(change); }

private:
    static QElapsedTimer started() {
        QElapsedTimer timer;
        timer.start();
        return timer;
    }

    static QQuickItem* viewIn(QQuickItem& item) {
        if (item.inherits("QQuickListView") && item.property("rowHeight").isValid()) return &item;
        for (QQuickItem* child : item.childItems()) {
            if (QQuickItem* found = viewIn(*child)) return found;
        }
        return nullptr;
    }

    Shell shell_;
    QtWindow window_;
    const HHSplitViewController split_;
    std::unique_ptr<bench::Frames> frames_;
    QQuickItem* view_ = nullptr;
};

void print(const std::vector<bench::Frame>& frames) {
    for (const bench::Frame& frame : frames) std::cout << frame.own << " " << frame.whole << "\n";
}

void tick(Environment& environment, FixedClock& clock, int count) {
    List list(environment, kHeightForTwentyRows);
    std::vector<bench::Frame> frames;
    for (int second = 0; second < count; ++second) {
        clock.advance(TimeInterval(1));
        frames.push_back(
            list.draw([&] { environment.notifications().post(HHAppTimerKeys::everySecound, nullptr); }));
    }
    print(frames);
}

void fling(Environment& environment, double pixels) {
    List list(environment, kHeight);
    QQuickItem& view = list.view();
    std::vector<bench::Frame> frames;
    const auto number = [&](const char* name) { return view.property(name).toDouble(); };
    while (number("contentY") < number("originY") + number("contentHeight") - view.height()) {
        frames.push_back(list.draw([&] { view.setProperty("contentY", number("contentY") + pixels); }));
    }
    print(frames);
}

}  // namespace

int main(int argc, char** argv) {
    prepareQt();
    const QGuiApplication application(argc, argv);
    if (argc != 4) {
        std::cerr << "use: shell_frames HOME tick COUNT | shell_frames HOME fling PIXELS\n";
        return 2;
    }
    const auto queues = std::make_shared<AsioQueues>();
    auto services = bench::shellServices(argv[1], queues);
    const auto clock = std::make_shared<FixedClock>(services.clock->now());
    services.clock = clock;
    Environment environment(std::move(services));
    const EnvironmentScope scope(&environment);
    const QtMainLoop loop(queues->mainLoop());
    if (std::string(argv[2]) == "tick")
        tick(environment, *clock, std::atoi(argv[3]));
    else
        fling(environment, std::atof(argv[3]));
}

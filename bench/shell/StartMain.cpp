// shell_start ARGUMENTS OF THE APPLICATION: the application itself, from its main() on, and beside it somebody
// who looks at its window: prints when the first frame with rows was on the display, when the last picture
// stood in its place, and how much memory is in use then; then ends the process.
#include <QGuiApplication>
#include <QQuickItem>
#include <QQuickWindow>
#include <QTimer>
#include <cstdlib>
#include <iostream>

#include "shell/Moments.h"
#include "shell/Program.h"

namespace {

using namespace dayward;

class Onlooker final : public QObject {
public:
    bool eventFilter(QObject* object, QEvent* event) override {
        auto* const window = event->type() == QEvent::Show ? qobject_cast<QQuickWindow*>(object) : nullptr;
        if (window != nullptr && std::exchange(window_, window) == nullptr) watch();
        return false;
    }

private:
    struct Rows {
        int count = 0;
        bool arePictured = true;
    };

    void watch() {
        connect(window_, &QQuickWindow::afterAnimating, this, [this] { look(); });
        connect(window_, &QQuickWindow::frameSwapped, this, [this] { frameIsShown(); }, Qt::DirectConnection);
    }

    /// Before the frame is drawn.
    void look() {
        Rows rows;
        lookInto(*window_->contentItem(), rows, false);
        if (rows.count > 0) hasRows_ = true;
        if (rows.count > 0 && rows.arePictured) hasPictures_ = true;
    }

    static void lookInto(const QQuickItem& item, Rows& rows, bool isRow) {
        if (!item.isVisible()) return;
        if (isRow && item.inherits("QQuickImage") && item.property("key").isValid() && item.opacity() < 1)
            rows.arePictured = rows.arePictured && item.property("key").toString().isEmpty();
        const bool begins = item.property("isHeader").isValid() && !item.property("isHeader").toBool();
        if (begins) ++rows.count;
        for (const QQuickItem* child : item.childItems()) lookInto(*child, rows, isRow || begins);
    }

    /// On the thread that draws.
    void frameIsShown() {
        if (hasRows_ && rowsAt_ == 0) rowsAt_ = bench::presentNanoseconds();
        if (!hasPictures_ || std::exchange(isDone_, true)) return;
        std::cout << rowsAt_ << " " << bench::presentNanoseconds() << std::endl;
        QMetaObject::invokeMethod(this, [this] { QTimer::singleShot(1500, this, [] { end(); }); });
    }

    static void end() {
        std::cout << bench::residentBytes() << std::endl;
        std::_Exit(0);
    }

    QQuickWindow* window_ = nullptr;
    std::atomic<bool> hasRows_ = false, hasPictures_ = false;
    bool isDone_ = false;
    long long rowsAt_ = 0;
};

void lookOn() { QCoreApplication::instance()->installEventFilter(new Onlooker); }

}  // namespace

Q_COREAPP_STARTUP_FUNCTION(lookOn)

int main(int argc, char** argv) { return runApplication(argc, argv); }

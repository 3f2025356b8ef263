#include "shell/QtWindow.h"

#include <QGuiApplication>
#include <QIcon>
#include <QQuickStyle>
#include <QQuickWindow>

#include "shell/Activation.h"
#include "shell/CoverableItem.h"
#include "shell/PictureProvider.h"
#include "shell/QtValues.h"

// What the build makes of the classes with QML_ELEMENT.
void qml_register_types_Dayward();

namespace dayward {

void prepareQt() {
    QQuickStyle::setStyle(QStringLiteral("Material"));
    QCoreApplication::setApplicationName(QStringLiteral("dayward"));
    QGuiApplication::setApplicationDisplayName(QStringLiteral("Dayward"));
    QGuiApplication::setDesktopFileName(QStringLiteral("org.dayward.Dayward"));
    QGuiApplication::setWindowIcon(QIcon::fromTheme(QStringLiteral("org.dayward.Dayward")));
    qml_register_types_Dayward();
    prepareCoverables();
}

QtWindow::QtWindow(Environment& environment, Shell& shell)
    : Window(shell.navigation()), shell_(shell), appearance_(environment) {
    engine_.addImageProvider(QString::fromLatin1(PictureProvider::kName),
                             new PictureProvider(environment, shell_.pictures()));
    engine_.addImportPath(QStringLiteral("qrc:/"));
    engine_.load(QUrl(QStringLiteral("qrc:/Dayward/Main.qml")));
    shell_.shareServices().setWindow(quickWindow(), &engine_);
    collectAfterFirstFrame();
}

/// What starting has left is collected while nothing moves yet: the first fling would wait for it.
void QtWindow::collectAfterFirstFrame() {
    const QQuickWindow* const window = quickWindow();
    if (window == nullptr) return;
    QObject::connect(window, &QQuickWindow::frameSwapped, &engine_, [this] { engine_.collectGarbage(); },
                     static_cast<Qt::ConnectionType>(Qt::QueuedConnection | Qt::SingleShotConnection));
}

QtWindow::~QtWindow() { shell_.shareServices().setWindow(nullptr, nullptr); }

QQuickWindow* QtWindow::quickWindow() const {
    const QList<QObject*> roots = engine_.rootObjects();
    return roots.isEmpty() ? nullptr : qobject_cast<QQuickWindow*>(roots.front());
}

void QtWindow::setBackgroundColor(Color) {
    // The theme's own colour stands where no screen draws, in light and in dark.
}

void QtWindow::setCover(std::optional<Color> color) {
    if (QQuickWindow* window = quickWindow()) {
        window->setProperty("coverColor", color ? qtColor(*color) : QColor(Qt::transparent));
        window->setProperty("covered", color.has_value());
    }
}

void QtWindow::show() {
    QQuickWindow* const window = quickWindow();
    if (window == nullptr) return;
    window->setWindowStates(window->windowStates() & ~Qt::WindowMinimized);
    window->show();
    window->raise();
    activate(*window);
}

}  // namespace dayward

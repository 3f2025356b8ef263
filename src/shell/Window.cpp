#include "shell/Window.h"

#include <QFont>
#include <QGuiApplication>
#include <QQuickStyle>
#include <QQuickWindow>

#include "shell/Fonts.h"
#include "shell/PictureProvider.h"

// What the build makes of the classes with QML_ELEMENT.
void qml_register_types_Dayward();

namespace dayward {

void prepareQt() {
    QQuickStyle::setStyle(QStringLiteral("Material"));
    qputenv("QT_QUICK_CONTROLS_MATERIAL_VARIANT", "Dense");
    QCoreApplication::setApplicationName(QStringLiteral("dayward"));
    QGuiApplication::setDesktopFileName(QStringLiteral("dayward"));
    qml_register_types_Dayward();
}

Window::Window(Environment& environment) : appearance_(environment), shell_(environment) {
    engine_.addImageProvider(QString::fromLatin1(PictureProvider::kName),
                             new PictureProvider(environment, shell_.pictures()));
    engine_.addImportPath(QStringLiteral("qrc:/"));
    engine_.load(QUrl(QStringLiteral("qrc:/Dayward/Main.qml")));
}

Window::~Window() = default;

QQuickWindow* Window::quickWindow() const {
    const QList<QObject*> roots = engine_.rootObjects();
    return roots.isEmpty() ? nullptr : qobject_cast<QQuickWindow*>(roots.front());
}

}  // namespace dayward

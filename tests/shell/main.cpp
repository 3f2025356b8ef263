#include <gmock/gmock.h>

#include <QGuiApplication>

#include "shell/QtWindow.h"

int main(int argc, char** argv) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    qputenv("QT_QUICK_BACKEND", "software");
    // No test asks the desktop that it runs on.
    qputenv("DBUS_SESSION_BUS_ADDRESS", "unix:path=/nonexistent");
    testing::InitGoogleMock(&argc, argv);
    dayward::prepareQt();
    const QGuiApplication application(argc, argv);
    return RUN_ALL_TESTS();
}

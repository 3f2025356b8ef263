#include "shell/SelfTest.h"

#include <QCoreApplication>
#include <QDirIterator>
#include <QElapsedTimer>
#include <QQmlComponent>
#include <QQuickWindow>
#include <iostream>

#include "Classes/App/EventFactory.h"
#include "Classes/Event/EventLocalStore.h"
#include "Classes/Interface/Edit/EventEditViewController.h"
#include "Classes/Interface/Events/HHSplitViewController.h"
#include "Classes/Interface/Info/SettingsViewController.h"
#include "shell/QtWindow.h"
#include "shell/ScreenTour.h"

namespace dayward {

namespace {

constexpr int kDrawMilliseconds = 60;

int faults = 0;

void countFault(QtMsgType type, const QMessageLogContext&, const QString& line) {
    if (type != QtWarningMsg && type != QtCriticalMsg) return;
    // What the platform says of itself is no fault of a screen.
    if (!line.contains(QLatin1String(".qml")) && !line.contains(QLatin1String("qrc:"))) return;
    ++faults;
    std::cerr << line.toStdString() << std::endl;
}

void draw() {
    QElapsedTimer clock;
    clock.start();
    while (clock.elapsed() < kDrawMilliseconds) QCoreApplication::processEvents(QEventLoop::AllEvents, 10);
}

void loadEveryFile(QQmlEngine& engine) {
    QDirIterator files(QStringLiteral(":/Dayward"), {QStringLiteral("*.qml")}, QDir::Files);
    while (files.hasNext()) {
        const QString file = files.next();
        const QQmlComponent component(&engine, QUrl(QStringLiteral("qrc") + file));
        if (!component.isError()) continue;
        ++faults;
        std::cerr << component.errorString().toStdString();
    }
}

}  // namespace

bool passesSelfTest(Environment& environment) {
    faults = 0;
    const QtMessageHandler before = qInstallMessageHandler(&countFault);
    {
        Shell shell(environment);
        QtWindow window(environment, shell);
        if (window.quickWindow() == nullptr) return false;
        loadEveryFile(window.engine());
        EventLocalStore::shared().updateEvents(EventFactory::getDefaultEvents());
        EventScreensServices services;
        services.share = &shell.shareServices();
        const HHSplitViewController split(shell.navigation(), services);
        window.setRootViewController(split.master());
        window.makeKeyAndVisible();
        draw();
        for (const auto& event : EventLocalStore::shared().allEvents()) {
            split.master()->presentDetailsForEventAtIdentifier(event->identifier());
            draw();
            shell.goBack();
        }
        shell.navigation().present(std::make_shared<EventEditViewController>());
        tourScreens(shell, draw);
        shell.goBack();
        shell.navigation().present(std::make_shared<SettingsViewController>(SettingsViewController::Services{}));
        tourScreens(shell, draw);
        shell.goBack();
        draw();
    }
    qInstallMessageHandler(before);
    return faults == 0;
}

}  // namespace dayward

#include "widget/window/WindowPlace.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QJsonDocument>
#include <QJsonObject>
#include <QSaveFile>
#include <iostream>

namespace dayward {

WindowPlace WindowPlace::read(const QString& path) {
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) return {};
    const QJsonObject stored = QJsonDocument::fromJson(file.readAll()).object();
    WindowPlace place;
    if (stored["x"].isDouble() && stored["y"].isDouble()) {
        place.position = QPoint(stored["x"].toInt(), stored["y"].toInt());
    }
    if (stored["count"].isDouble()) place.count = stored["count"].toInt();
    return place;
}

void WindowPlace::write(const QString& path) const {
    QJsonObject stored;
    if (position) {
        stored["x"] = position->x();
        stored["y"] = position->y();
    }
    if (count) stored["count"] = *count;
    QDir().mkpath(QFileInfo(path).path());
    QSaveFile file(path);
    if (file.open(QIODevice::WriteOnly) && file.write(QJsonDocument(stored).toJson()) > 0 && file.commit()) return;
    std::cerr << "dayward-widget-window: " << path.toStdString() << ": " << file.errorString().toStdString()
              << std::endl;
}

}  // namespace dayward

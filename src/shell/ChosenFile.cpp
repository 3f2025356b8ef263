#include "shell/ChosenFile.h"

#include <QFile>
#include <QFileInfo>

namespace dayward {

namespace {
constexpr qint64 kLargestFile = 256LL * 1024 * 1024;
}

ChosenPicture readChosenFile(const QUrl& url) {
    const QString path = url.toLocalFile();
    ChosenPicture picture{{}, QFileInfo(path).fileName().toStdString()};
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly) || file.size() > kLargestFile) return picture;
    const QByteArray bytes = file.readAll();
    picture.bytes.assign(bytes.begin(), bytes.end());
    return picture;
}

}  // namespace dayward

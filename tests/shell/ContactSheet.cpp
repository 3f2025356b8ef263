#include "shell/ContactSheet.h"

#include <QImage>
#include <QPainter>
#include <stdexcept>

namespace dayward {

namespace {

constexpr int kColumns = 8;
constexpr int kShrink = 4;
constexpr int kGap = 8;
constexpr int kQuality = 88;

QImage smallPicture(const std::string& file) {
    const QImage picture(QString::fromStdString(file));
    if (picture.isNull()) throw std::runtime_error(file + ": the picture cannot be read");
    return picture.scaledToWidth(picture.width() / kShrink, Qt::SmoothTransformation);
}

}  // namespace

void writeContactSheet(const std::vector<std::string>& files, const std::string& path) {
    if (files.empty()) return;
    const QSize cell = smallPicture(files.front()).size() + QSize(kGap, kGap);
    const int rows = (static_cast<int>(files.size()) + kColumns - 1) / kColumns;
    QImage sheet(cell.width() * kColumns + kGap, cell.height() * rows + kGap, QImage::Format_RGB32);
    sheet.fill(Qt::gray);
    QPainter painter(&sheet);
    for (int place = 0; place < static_cast<int>(files.size()); ++place) {
        painter.drawImage(kGap + place % kColumns * cell.width(), kGap + place / kColumns * cell.height(),
                          smallPicture(files[static_cast<std::size_t>(place)]));
    }
    painter.end();
    if (!sheet.save(QString::fromStdString(path), nullptr, kQuality)) {
        throw std::runtime_error(path + ": the sheet cannot be written");
    }
}

}  // namespace dayward

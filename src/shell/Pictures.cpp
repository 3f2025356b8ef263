#include "shell/Pictures.h"

#include <QMutexLocker>
#include <QPainter>
#include <QPainterPath>
#include <QUrl>
#include <algorithm>

#include "shell/QtImages.h"

namespace dayward {

namespace {

constexpr qsizetype kLoaders = 4096;
constexpr qsizetype kDrawnKilobytes = 64 * 1024;

/// Halves the picture until one more step would be too much: a smooth reduction by any factor.
QImage reduced(QImage image, QSize target) {
    while (image.width() >= 2 * target.width() && image.height() >= 2 * target.height()) {
        image = image.scaled(image.width() / 2, image.height() / 2, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
    }
    return image.scaled(target, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
}

QImage fitted(const QImage& image, const Pictures::Place& place) {
    if (place.size.isEmpty() || image.isNull()) return image;
    const auto mode =
        place.fit == Pictures::Fit::fill ? Qt::KeepAspectRatioByExpanding : Qt::KeepAspectRatio;
    const QImage scaled = reduced(image, image.size().scaled(place.size, mode).expandedTo({1, 1}));
    QImage canvas(place.size, QImage::Format_ARGB32_Premultiplied);
    canvas.fill(Qt::transparent);
    QPainter painter(&canvas);
    painter.setRenderHint(QPainter::Antialiasing);
    const QPointF offset((canvas.width() - scaled.width()) / 2.0, (canvas.height() - scaled.height()) / 2.0);
    if (place.radius > 0) {
        QPainterPath corners;
        corners.addRoundedRect(canvas.rect(), place.radius, place.radius);
        QBrush brush(scaled);
        brush.setTransform(QTransform::fromTranslate(offset.x(), offset.y()));
        painter.fillPath(corners, brush);
    } else {
        painter.drawImage(offset, scaled);
    }
    return canvas;
}

QString drawnKey(const QString& key, const Pictures::Place& place) {
    return QStringLiteral("%1|%2x%3|%4|%5")
        .arg(key)
        .arg(place.size.width())
        .arg(place.size.height())
        .arg(place.fit == Pictures::Fit::fill ? 1 : 0)
        .arg(place.radius);
}

}  // namespace

Pictures::Pictures() : loaders_(kLoaders), drawn_(kDrawnKilobytes) {}

QString Pictures::add(const RowPicture& picture) {
    if (picture.key.empty() || !picture.load) return {};
    const QString key = QString::fromStdString(picture.key);
    const QMutexLocker lock(&mutex_);
    if (!loaders_.contains(key)) {
        loaders_.insert(key, new std::shared_ptr<const Load>(std::make_shared<const Load>(picture.load)));
    }
    return QString::fromLatin1(QUrl::toPercentEncoding(key));
}

std::shared_ptr<const Pictures::Load> Pictures::loader(const QString& key) {
    const QMutexLocker lock(&mutex_);
    const auto* found = loaders_.object(key);
    return found != nullptr ? *found : nullptr;
}

QImage Pictures::picture(const QString& key, const Place& place) {
    const QString name = drawnKey(key, place);
    {
        const QMutexLocker lock(&mutex_);
        if (const QImage* known = drawn_.object(name)) return *known;
    }
    const auto load = loader(key);
    const auto image = load ? (*load)() : nullptr;
    if (!image) return {};
    QImage drawn = fitted(qtImage(*image), place);
    const QMutexLocker lock(&mutex_);
    drawn_.insert(name, new QImage(drawn), std::max<qsizetype>(1, drawn.sizeInBytes() / 1024));
    return drawn;
}

void Pictures::remove(const QString& key) {
    const QMutexLocker lock(&mutex_);
    loaders_.remove(key);
    for (const QString& name : drawn_.keys()) {
        if (name.startsWith(key + QLatin1Char('|'))) drawn_.remove(name);
    }
}

}  // namespace dayward

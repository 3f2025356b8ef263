#include "shell/PictureSource.h"

#include <utility>

#include "shell/PictureProvider.h"

namespace dayward {

PictureSource::PictureSource(QObject* parent) : QObject(parent) {
    connect(this, &PictureSource::keyChanged, this, &PictureSource::update);
    connect(this, &PictureSource::placeChanged, this, &PictureSource::update);
}

void PictureSource::update() {
    QUrl url;
    if (!key_.isEmpty() && hasSize_) {
        url = QUrl(QLatin1String("image://") + QLatin1String(PictureProvider::kName) +
                   QLatin1String(isWhole_ ? "/inside/" : "/fill/") + QString::number(radius_) + QLatin1Char('/') + key_);
    }
    if (std::exchange(url_, url) != url) emit urlChanged();
}

}  // namespace dayward

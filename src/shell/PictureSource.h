// Where QML finds a picture of Pictures, by its key and its place. Main thread only.
#pragma once

#include <QObject>
#include <QString>
#include <QUrl>
#include <QtQml/qqmlregistration.h>

namespace dayward {

class PictureSource : public QObject {
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(QString key MEMBER key_ NOTIFY keyChanged)
    /// Kept whole in its place instead of cut to fill it.
    Q_PROPERTY(bool whole MEMBER isWhole_ NOTIFY placeChanged)
    /// Of the corners, in pixels of the device.
    Q_PROPERTY(int radius MEMBER radius_ NOTIFY placeChanged)
    /// Without a size there is nothing to draw yet.
    Q_PROPERTY(bool hasSize MEMBER hasSize_ NOTIFY placeChanged)
    /// Empty where there is no picture.
    Q_PROPERTY(QUrl url READ url NOTIFY urlChanged)

public:
    explicit PictureSource(QObject* parent = nullptr);

    [[nodiscard]] const QUrl& url() const { return url_; }

signals:
    void keyChanged();
    void placeChanged();
    void urlChanged();

private:
    void update();

    QString key_;
    bool isWhole_ = false, hasSize_ = false;
    int radius_ = 0;
    QUrl url_;
};

}  // namespace dayward

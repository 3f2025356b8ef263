// Gives QML the pictures of Pictures under "image://pictures/", read and drawn on the global queue;
// one whose row has gone meanwhile is not read.
#pragma once

#include <QQuickAsyncImageProvider>

#include "shell/Pictures.h"

namespace dayward {

class Environment;

class PictureProvider final : public QQuickAsyncImageProvider {
public:
    static constexpr const char* kName = "pictures";

    /// Neither is owned.
    PictureProvider(Environment& environment, Pictures& pictures) : environment_(environment), pictures_(pictures) {}

    QQuickImageResponse* requestImageResponse(const QString& id, const QSize& requestedSize) override;

private:
    Environment& environment_;
    Pictures& pictures_;
};

}  // namespace dayward

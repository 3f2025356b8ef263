#include "shell/PictureProvider.h"

#include <QMetaObject>
#include <QQuickTextureFactory>
#include <QUrl>
#include <atomic>
#include <mutex>

#include "platform/DispatchQueue.h"
#include "platform/Environment.h"

namespace dayward {

namespace {

/// What the block on the queue and the response share: the response may go before the block runs.
struct Request {
    std::mutex mutex;
    class Response* response = nullptr;
    std::atomic<bool> isCancelled = false;
};

class Response final : public QQuickImageResponse {
public:
    explicit Response(std::shared_ptr<Request> request) : request_(std::move(request)) { request_->response = this; }
    ~Response() override {
        const std::lock_guard lock(request_->mutex);
        request_->response = nullptr;
    }

    void finish(QImage image) {
        image_ = std::move(image);
        emit finished();
    }

    [[nodiscard]] QQuickTextureFactory* textureFactory() const override {
        return QQuickTextureFactory::textureFactoryForImage(image_);
    }
    [[nodiscard]] QString errorString() const override {
        return image_.isNull() && !request_->isCancelled ? QStringLiteral("the picture cannot be read") : QString();
    }
    void cancel() override { request_->isCancelled = true; }

private:
    const std::shared_ptr<Request> request_;
    QImage image_;
};

/// On the thread of the response, as Qt Quick begins to listen there only after it has the response: a picture
/// that stood ready would be lost.
void answer(Request& request, QImage image) {
    const std::lock_guard lock(request.mutex);
    Response* const response = request.response;
    if (response == nullptr) return;
    QMetaObject::invokeMethod(
        response, [response, image = std::move(image)]() mutable { response->finish(std::move(image)); },
        Qt::QueuedConnection);
}

}  // namespace

QQuickImageResponse* PictureProvider::requestImageResponse(const QString& id, const QSize& requestedSize) {
    const auto request = std::make_shared<Request>();
    auto* const response = new Response(request);
    const Pictures::Place place{requestedSize,
                                id.section(QLatin1Char('/'), 0, 0) == QLatin1String("inside") ? Pictures::Fit::inside
                                                                                             : Pictures::Fit::fill,
                                id.section(QLatin1Char('/'), 1, 1).toInt()};
    const QString key = QUrl::fromPercentEncoding(id.section(QLatin1Char('/'), 2).toLatin1());
    const EnvironmentScope scope(&environment_);
    environment_.queues().global().async([request, key, place, &pictures = pictures_] {
        answer(*request, request->isCancelled ? QImage() : pictures.picture(key, place));
    });
    return response;
}

}  // namespace dayward

// Sharing with the desktop: clipboard, files, mail, other programs, and the picture of an event drawn by
// the window out of sight. Main thread only.
#pragma once

#include <QObject>
#include <QUrl>
#include <functional>

#include "Classes/Share/ShareServices.h"

class QQmlEngine;
class QQuickWindow;

namespace dayward {

class Pictures;

class QtShareServices final : public QObject, public ShareServices {
    Q_OBJECT

public:
    /// Not owned.
    explicit QtShareServices(Pictures& pictures) : pictures_(pictures) {}

    /// Where pictures are drawn; null before the window goes. Not owned.
    void setWindow(QQuickWindow* window, QQmlEngine* engine);
    /// The answer to savePathWanted; empty for none.
    void takeSavePath(const QUrl& file);

    void copyText(const std::string& text) override;
    void copyImage(Picture image) override;
    void chooseSavePath(const std::string& suggestedName,
                        std::function<void(const std::string& path)> completion) override;
    bool mailTakesFiles() const override;
    Result<> composeMail(const MailDraft& draft) override;
    Result<> openWith(const std::string& path) override;
    void renderDetail(const EventDetailView& view, PixelSize size, double pixelsPerPoint,
                      std::function<void(Picture)> completion) override;

signals:
    void savePathWanted(const QString& suggestedName);

private:
    Pictures& pictures_;
    QQuickWindow* window_ = nullptr;
    QQmlEngine* engine_ = nullptr;
    std::function<void(const std::string& path)> pathChosen_;
};

}  // namespace dayward

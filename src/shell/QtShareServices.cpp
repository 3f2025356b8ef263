#include "shell/QtShareServices.h"

#include <QClipboard>
#include <QDesktopServices>
#include <QGuiApplication>
#include <QProcess>
#include <QQmlComponent>
#include <QQmlEngine>
#include <QQuickItem>
#include <QQuickWindow>
#include <QStandardPaths>
#include <QUrlQuery>
#include <utility>

#include "platform/Log.h"
#include "shell/DetailLook.h"
#include "shell/PictureDrawing.h"
#include "shell/Pictures.h"
#include "shell/QtImages.h"
#include "shell/QtValues.h"

namespace dayward {

namespace {

/// The desktop's own command carries a file to any program for mail.
const QString kMailCommand = QStringLiteral("xdg-email");

bool startMailCommand(const MailDraft& draft) {
    return QProcess::startDetached(kMailCommand, {QStringLiteral("--utf8"), QStringLiteral("--subject"),
                                                  qtText(draft.subject), QStringLiteral("--body"), qtText(draft.text),
                                                  QStringLiteral("--attach"), qtText(draft.attachmentPath)});
}

/// Without the file, which programs leave out of links.
QUrl mailLink(const MailDraft& draft) {
    QUrlQuery query;
    const auto add = [&query](const char* name, const std::string& value) {
        if (value.empty()) return;
        query.addQueryItem(QString::fromLatin1(name), QString::fromLatin1(QUrl::toPercentEncoding(qtText(value))));
    };
    add("subject", draft.subject);
    add("body", draft.text);
    QUrl link(QStringLiteral("mailto:"));
    link.setQuery(query);
    return link;
}

}  // namespace

void QtShareServices::setWindow(QQuickWindow* window, QQmlEngine* engine) {
    window_ = window;
    engine_ = engine;
}

void QtShareServices::copyText(const std::string& text) { QGuiApplication::clipboard()->setText(qtText(text)); }

void QtShareServices::copyImage(Picture image) {
    if (image) QGuiApplication::clipboard()->setImage(qtImage(*image));
}

void QtShareServices::chooseSavePath(const std::string& suggestedName,
                                     std::function<void(const std::string& path)> completion) {
    pathChosen_ = std::move(completion);
    emit savePathWanted(qtText(suggestedName));
}

void QtShareServices::takeSavePath(const QUrl& file) {
    const auto completion = std::exchange(pathChosen_, nullptr);
    if (completion && file.isLocalFile()) completion(file.toLocalFile().toStdString());
}

bool QtShareServices::mailTakesFiles() const { return !QStandardPaths::findExecutable(kMailCommand).isEmpty(); }

Result<> QtShareServices::composeMail(const MailDraft& draft) {
    if (!draft.attachmentPath.empty() && startMailCommand(draft)) return {};
    if (QDesktopServices::openUrl(mailLink(draft))) return {};
    return failure("mail", 0, {{"reason", "no program takes mail"}});
}

Result<> QtShareServices::openWith(const std::string& path) {
    if (QDesktopServices::openUrl(QUrl::fromLocalFile(qtText(path)))) return {};
    return failure("open", 0, {{"path", path}, {"reason", "no program takes it"}});
}

void QtShareServices::renderDetail(const EventDetailView& view, PixelSize size, double pixelsPerPoint,
                                   std::function<void(Picture)> completion) {
    if (window_ == nullptr || size.width < 1 || size.height < 1) return completion(nullptr);
    QQmlComponent component(engine_, QUrl(QStringLiteral("qrc:/Dayward/SharedPicture.qml")));
    auto* item = qobject_cast<QQuickItem*>(
        component.createWithInitialProperties({{"look", QVariant::fromValue(DetailLook(view, pictures_))},
                                               {"width", size.width / pixelsPerPoint},
                                               {"height", size.height / pixelsPerPoint}}));
    if (item == nullptr) {
        logError("the picture cannot be drawn: " + component.errorString().toStdString());
        return completion(nullptr);
    }
    new PictureDrawing(*item, *window_, {size.width, size.height}, [completion](const QImage& image) {
        completion(image.isNull() ? nullptr : std::make_shared<const Image>(coreImage(image)));
    });
}

}  // namespace dayward

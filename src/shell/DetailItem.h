// The screen of one event as QML sees it. Main thread only.
#pragma once

#include <QtQml/qqmlregistration.h>

#include "Classes/Interface/Events/EventDetailViewController.h"
#include "shell/DetailLook.h"
#include "shell/ScreenItem.h"

namespace dayward {

class DetailItem final : public ScreenItem, public EventDetailObserver {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("made by its stack")
    Q_PROPERTY(bool hasEvent READ hasEvent NOTIFY lookChanged)
    Q_PROPERTY(dayward::DetailLook look READ look NOTIFY lookChanged)
    Q_PROPERTY(bool canShare READ canShare CONSTANT)
    Q_PROPERTY(QString shareTitle READ shareTitle CONSTANT)
    Q_PROPERTY(QString shareTextTitle READ shareTextTitle CONSTANT)
    Q_PROPERTY(QString shareImageTitle READ shareImageTitle CONSTANT)

public:
    DetailItem(std::shared_ptr<EventDetailViewController> detail, Pictures& pictures, QObject* parent);
    ~DetailItem() override;

    [[nodiscard]] QString page() const override { return QStringLiteral("detail"); }
    [[nodiscard]] bool hasEvent() const { return detail_->hasContent(); }
    [[nodiscard]] DetailLook look() const;
    [[nodiscard]] bool canShare() const { return detail_->shareToolbar() != nullptr; }
    [[nodiscard]] static QString shareTitle();
    [[nodiscard]] static QString shareTextTitle();
    [[nodiscard]] static QString shareImageTitle();

    Q_INVOKABLE void tapNote() { detail_->noteTapGestureAction(); }
    Q_INVOKABLE void shareText();
    Q_INVOKABLE void shareImage();

    void detailDidChange(DetailChange) override { emit lookChanged(); }

signals:
    void lookChanged();

private:
    const std::shared_ptr<EventDetailViewController> detail_;
    Pictures& pictures_;
};

}  // namespace dayward

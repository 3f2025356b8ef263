// A screen as QML sees it: its bar, what kind of page draws it, and its rows. Keeps the screen while its
// page still goes out of sight. Main thread only.
#pragma once

#include <QObject>
#include <QUrl>
#include <QVariantList>
#include <QtQml/qqmlregistration.h>
#include <memory>

#include "Classes/Interface/Screens/ViewController.h"
#include "shell/TableModel.h"

namespace dayward {

class ScreenItem : public QObject, public ViewControllerObserver {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("made by its stack")
    Q_PROPERTY(QString title READ title NOTIFY barChanged)
    /// Each {role, label, enabled}, in the screen's order.
    Q_PROPERTY(QVariantList buttons READ buttons NOTIFY barChanged)
    /// Which page draws it: "table", "list", "detail"; empty for none.
    Q_PROPERTY(QString page READ page CONSTANT)
    /// Null where the page is no table.
    Q_PROPERTY(dayward::TableModel* rows READ rows CONSTANT)
    Q_PROPERTY(bool takesPictures READ takesPictures CONSTANT)

public:
    using Screen = std::shared_ptr<ViewController>;

    ScreenItem(Screen screen, Pictures& pictures, QObject* parent);
    /// The item of the screen's own kind.
    static ScreenItem* make(const Screen& screen, Pictures& pictures, QObject* parent);
    ~ScreenItem() override;

    [[nodiscard]] const Screen& screen() const { return screen_; }
    [[nodiscard]] QString title() const;
    [[nodiscard]] QVariantList buttons() const;
    [[nodiscard]] virtual QString page() const;
    [[nodiscard]] TableModel* rows() const { return rows_.get(); }
    [[nodiscard]] bool takesPictures() const;

    /// False where there is no such button or it is at rest.
    Q_INVOKABLE bool press(const QString& role);
    /// Goes one step back in the stack that holds the screen.
    Q_INVOKABLE void goBack();
    /// A picture file dropped on the screen.
    Q_INVOKABLE void dropPicture(const QUrl& file);

    // A page holds the item while it draws it; an item that no stack has any more goes with its page.
    Q_INVOKABLE void hold() { ++pages_; }
    Q_INVOKABLE void release();
    void retire();

    void barDidChange() override { emit barChanged(); }

signals:
    void barChanged();

private:
    const Screen screen_;
    std::unique_ptr<TableModel> rows_;
    int pages_ = 0;
    bool isRetired_ = false;
};

}  // namespace dayward

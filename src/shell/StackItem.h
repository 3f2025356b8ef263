// A stack of screens as QML sees it; who draws it brings its own pages into line. Main thread only.
#pragma once

#include <QtQml/qqmlregistration.h>
#include <QList>
#include <QObject>
#include <QVariantList>

#include "Classes/Interface/Screens/Navigation.h"
#include "shell/ScreenItem.h"

namespace dayward {

class StackItem final : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("made by the shell")
    /// The lowest first.
    Q_PROPERTY(QVariantList screens READ screenObjects NOTIFY changed)
    Q_PROPERTY(dayward::ScreenItem* panel READ panel NOTIFY panelChanged)

public:
    StackItem(Navigation& navigation, StackId id, Pictures& pictures, QObject* parent);
    ~StackItem() override;

    [[nodiscard]] StackId id() const { return id_; }
    [[nodiscard]] const QList<ScreenItem*>& screens() const { return screens_; }
    /// The same, as QML takes them.
    [[nodiscard]] QVariantList screenObjects() const;
    [[nodiscard]] ScreenItem* panel() const { return panel_; }

    /// Takes what the navigation has. Items of screens that are still there stay the same.
    void refresh();
    void refreshPanel();
    /// The stack is no more; its items go with their pages.
    void retire();

    /// Presses a button of the top screen; false where it has none, and under a panel.
    bool pressTop(const QString& role) {
        return !screens_.isEmpty() && panel_ == nullptr && screens_.last()->press(role);
    }
    /// Presses it on the uppermost screen that has it.
    bool pressFromTop(const QString& role);

    /// One step back; false where there is nothing to go back from.
    Q_INVOKABLE bool goBack();

signals:
    void changed();
    void panelChanged();

private:
    ScreenItem* itemOf(const Presenter::Screen& screen);

    Navigation& navigation_;
    const StackId id_;
    Pictures& pictures_;
    QList<ScreenItem*> screens_;
    ScreenItem* panel_ = nullptr;
};

}  // namespace dayward

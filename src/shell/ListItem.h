// The event list's screen as QML sees it. Main thread only.
#pragma once

#include <QtQml/qqmlregistration.h>

#include "Classes/Interface/Events/EventListViewController.h"
#include "shell/EventListModel.h"
#include "shell/ScreenItem.h"

namespace dayward {

class ListItem final : public ScreenItem, public EventListObserver {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("made by its stack")
    Q_PROPERTY(dayward::EventListModel* events READ events CONSTANT)
    Q_PROPERTY(dayward::EventListModel* found READ found CONSTANT)
    Q_PROPERTY(bool searching READ isSearching NOTIFY listChanged)
    Q_PROPERTY(bool canSearch READ canSearch NOTIFY listChanged)
    Q_PROPERTY(QString searchText READ searchText NOTIFY listChanged)
    Q_PROPERTY(bool editing READ isEditing NOTIFY listChanged)
    /// "12 / 40" while events come from the cloud; empty otherwise.
    Q_PROPERTY(QString progress READ progress NOTIFY listChanged)
    Q_PROPERTY(QString adviceTitle READ adviceTitle NOTIFY listChanged)
    Q_PROPERTY(QString adviceText READ adviceText NOTIFY listChanged)
    /// Of the event in the detail pane; empty for none.
    Q_PROPERTY(QString selectedKey READ selectedKey NOTIFY listChanged)

public:
    ListItem(std::shared_ptr<EventListViewController> list, Pictures& pictures, QObject* parent);
    ~ListItem() override;

    [[nodiscard]] QString page() const override { return QStringLiteral("list"); }
    [[nodiscard]] EventListModel* events() { return &events_; }
    [[nodiscard]] EventListModel* found() { return &found_; }
    [[nodiscard]] bool isSearching() const { return list_->isSearching(); }
    [[nodiscard]] bool canSearch() const { return list_->isSearchBarEnabled(); }
    [[nodiscard]] QString searchText() const;
    [[nodiscard]] bool isEditing() const { return list_->isEditing(); }
    [[nodiscard]] QString progress() const;
    [[nodiscard]] QString adviceTitle() const;
    [[nodiscard]] QString adviceText() const;
    [[nodiscard]] QString selectedKey() const;

    Q_INVOKABLE void search(const QString& text) { list_->setSearchText(text.toStdString()); }
    Q_INVOKABLE void beginSearch() { list_->beginSearch(); }
    Q_INVOKABLE void endSearch() { list_->endSearch(); }
    Q_INVOKABLE bool undoDeletion() { return list_->undoDeletion(); }
    /// The user let go of the list.
    Q_INVOKABLE void clearMissed() { list_->clearMissedEvents(); }
    Q_INVOKABLE void endDrag(bool willDecelerate) { list_->scrollViewDidEndDragging(willDecelerate); }

    void listDidChange() override { emit listChanged(); }

signals:
    void listChanged();

private:
    const std::shared_ptr<EventListViewController> list_;
    EventListModel events_;
    EventListModel found_;
};

}  // namespace dayward

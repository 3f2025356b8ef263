// A row of the event list in QML. It tells the model for which event it is in sight, and when no longer: the list
// puts rows away and takes them up again for other events. Main thread only.
#pragma once

#include <QPointer>
#include <QQuickItem>
#include <QtQml/qqmlregistration.h>

#include "shell/EventListModel.h"
#include "shell/EventRowData.h"

namespace dayward {

class EventRowItem : public QQuickItem {
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(dayward::EventRowData row READ row WRITE setRow NOTIFY rowChanged REQUIRED)
    /// Whose row it is: the first one that it is given.
    Q_PROPERTY(dayward::EventListModel* rows READ rows WRITE setRows NOTIFY rowsChanged)
    /// Whether the list has put it away.
    Q_PROPERTY(bool pooled READ isPooled WRITE setPooled NOTIFY pooledChanged)

public:
    using QQuickItem::QQuickItem;
    ~EventRowItem() override;

    [[nodiscard]] const EventRowData& row() const { return row_; }
    /// While it has no event, such as on its way out, the last one counts as in sight.
    void setRow(const EventRowData& row);
    [[nodiscard]] EventListModel* rows() const { return rows_; }
    void setRows(EventListModel* rows);
    [[nodiscard]] bool isPooled() const { return isPooled_; }
    void setPooled(bool pooled);

signals:
    void rowChanged();
    void rowsChanged();
    void pooledChanged();

private:
    /// Nothing for an empty key.
    void show(const QString& eventKey);

    EventRowData row_;
    QPointer<EventListModel> rows_;
    QString shownKey_;
    bool isPooled_ = false;
};

}  // namespace dayward

// A table of the event list for QML: headers and rows; the content of the rows in sight stays current by
// itself. Main thread only.
#pragma once

#include <QSize>
#include <QtQml/qqmlregistration.h>
#include <map>
#include <memory>
#include <string>

#include "Classes/Interface/Events/EventListViewController.h"
#include "shell/EventRowData.h"
#include "shell/SectionedModel.h"

namespace dayward {

class EventListModel final : public SectionedModelOf<EventListView> {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("made by its screen")
    /// Of the rows, in pixels of the device.
    Q_PROPERTY(QSize rowSize READ rowSize WRITE setRowSize NOTIFY rowSizeChanged)
    /// In points; negative while the list is pulled down beyond its top.
    Q_PROPERTY(qreal offset READ contentOffsetY WRITE setOffset NOTIFY offsetChanged)

public:
    enum Role { RowRole = Qt::UserRole, KindRole, HeaderRole };

    /// None is owned.
    EventListModel(EventListViewController& screen, EventListTable& table, Pictures& pictures, QObject* parent = nullptr);
    ~EventListModel() override;

    [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override;
    [[nodiscard]] QHash<int, QByteArray> roleNames() const override;
    [[nodiscard]] QSize rowSize() const { return rowSize_; }
    void setRowSize(QSize size);
    void setOffset(qreal offset);

    // A delegate says for which event it is in sight, and when no longer.
    void show(const QString& eventKey);
    void hide(const QString& eventKey);

    /// Whether an event stands there, no header.
    Q_INVOKABLE [[nodiscard]] bool isRow(int place) const { return pathAt(place).has_value(); }
    Q_INVOKABLE void select(int place);
    Q_INVOKABLE void removeRow(int place);
    Q_INVOKABLE [[nodiscard]] bool canMove(int from, int to) const;
    Q_INVOKABLE void dragRow(int from, int to);
    /// By one place, by keyboard. False where it cannot move.
    Q_INVOKABLE bool stepRow(int place, bool down);
    /// -1 where there is none.
    Q_INVOKABLE [[nodiscard]] int placeOfEvent(const QString& eventKey) const;

    // EventListView
    void reloadData() override;
    void insertSection(std::size_t index) override;
    void reloadRow(IndexPath path) override;
    void refreshRow(IndexPath path) override { rowDidChange(path, {RowRole}); }
    void deselectRow(IndexPath, bool) override {}
    [[nodiscard]] double contentOffsetY() const override { return offset_; }

signals:
    void rowSizeChanged();
    void offsetChanged();

private:
    [[nodiscard]] std::vector<int> countRows() const override;
    [[nodiscard]] bool hasHeaders() const override { return hasHeaders_; }
    [[nodiscard]] bool hasFooters() const override { return false; }
    void readWhetherHeaders();
    [[nodiscard]] std::shared_ptr<const EventTableViewCell> cellAt(IndexPath path) const;

    EventListViewController& screen_;
    EventListTable& table_;
    Pictures& pictures_;
    mutable std::map<std::string, std::shared_ptr<const EventTableViewCell>> cells_;
    std::map<std::string, int> delegates_;  ///< how many draw the event; two while one goes
    QSize rowSize_{800, 160};
    double offset_ = 0;
    bool hasHeaders_ = false;
};

}  // namespace dayward

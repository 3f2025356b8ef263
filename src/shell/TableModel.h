// A table screen's sections and rows as one flat list for QML: of each section its header, its rows, its
// footer. Each update of the screen becomes one change of the model, never a reset.
//
// What the user does to a row goes to the screen by the row's place in this list. Main thread only.
#pragma once

#include <QAbstractListModel>
#include <QtQml/qqmlregistration.h>
#include <functional>
#include <optional>

#include "Classes/Interface/Screens/TableScreen.h"
#include "shell/TableRowData.h"

namespace dayward {

class TableModel final : public QAbstractListModel, public TableUpdates {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("made by its screen")

public:
    enum Role {
        RowRole = Qt::UserRole,  ///< TableRowData
        KindRole,                ///< its kind, which stays
        FirstRole,               ///< first of its section
        LastRole,                ///< last of its section
    };

    /// Neither is owned.
    TableModel(TableScreen& screen, Pictures& pictures, QObject* parent = nullptr);
    ~TableModel() override;

    [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override;
    [[nodiscard]] QHash<int, QByteArray> roleNames() const override;

    Q_INVOKABLE void select(int place);
    Q_INVOKABLE void toggle(int place, bool on);
    Q_INVOKABLE void editText(int place, const QString& text);
    Q_INVOKABLE void pickDate(int place, int year, int month, int day, int hour, int minute);
    Q_INVOKABLE void pickWheels(int place, const QList<int>& positions);
    Q_INVOKABLE void tapItem(int place, int item);
    Q_INVOKABLE void deleteRow(int place);
    /// Whether a row may be dragged from one place to the other.
    Q_INVOKABLE [[nodiscard]] bool canMove(int from, int to) const;
    Q_INVOKABLE void moveRow(int from, int to);
    /// The place of the row with that id; -1 where there is none.
    Q_INVOKABLE [[nodiscard]] int placeOfRow(const QString& rowId) const;

    // TableUpdates
    void reloadData() override;
    void insertRow(IndexPath path) override;
    void reloadRow(IndexPath path) override;
    void deleteRow(IndexPath path) override;
    void moveRow(IndexPath from, IndexPath to) override;
    void insertSection(std::size_t index) override;
    void reloadSection(std::size_t index) override;
    void deleteSection(std::size_t index) override;
    void moveSection(std::size_t from, std::size_t to) override;

private:
    /// Where an item of the list stands; a row of -1 is the header, one beyond the last the footer.
    struct Place {
        std::size_t section = 0;
        int row = 0;
    };
    [[nodiscard]] Place placeAt(int index) const;
    [[nodiscard]] std::optional<IndexPath> pathAt(int index) const;
    [[nodiscard]] int startOfSection(std::size_t section) const;
    [[nodiscard]] int indexOf(IndexPath path) const;
    void moveItems(int from, int count, int to, const std::function<void()>& change);
    void edgesDidChange(std::size_t section);

    TableScreen& screen_;
    Pictures& pictures_;
    std::vector<int> rowCounts_;  ///< of the sections as the model has told them
};

}  // namespace dayward

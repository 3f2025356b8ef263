// A table screen's sections and rows for QML. What the user does to a row goes to the screen by the row's place in this list. Main thread only.
#pragma once

#include <QtQml/qqmlregistration.h>
#include <map>
#include <string>

#include "Classes/Interface/Screens/TableScreen.h"
#include "shell/SectionedModel.h"
#include "shell/TableRowData.h"

namespace dayward {

class TableModel final : public SectionedModelOf<TableUpdates> {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("made by its screen")

public:
    enum Role {
        RowRole = Qt::UserRole,  ///< TableRowData
        KindRole,                ///< its kind, which stays while the row does
        FirstRole,               ///< first of its section
        LastRole,                ///< last of its section
    };

    /// Neither is owned.
    TableModel(TableScreen& screen, Pictures& pictures, QObject* parent = nullptr);
    ~TableModel() override;

    [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override;
    [[nodiscard]] QHash<int, QByteArray> roleNames() const override;

    Q_INVOKABLE void select(int place);
    Q_INVOKABLE void toggle(int place, bool on);
    Q_INVOKABLE void editText(int place, const QString& text);
    Q_INVOKABLE void pickDate(int place, int year, int month, int day, int hour, int minute);
    Q_INVOKABLE void pickWheels(int place, const QList<int>& positions);
    Q_INVOKABLE void tapItem(int place, int item);
    Q_INVOKABLE void removeRow(int place);
    /// Whether a row may be dragged from one place to the other.
    Q_INVOKABLE [[nodiscard]] bool canMove(int from, int to) const;
    Q_INVOKABLE void dragRow(int from, int to);
    /// The place of the row with that id; -1 where there is none.
    Q_INVOKABLE [[nodiscard]] int placeOfRow(const QString& rowId) const;

    /// A row of another kind than before comes as a new one: something else draws it.
    void reloadRow(IndexPath path) override;

private:
    [[nodiscard]] std::vector<int> countRows() const override;
    [[nodiscard]] QList<int> edgeRoles() const override { return {FirstRole, LastRole}; }

    TableScreen& screen_;
    Pictures& pictures_;
    mutable std::map<std::string, RowKind> kinds_;  ///< of the rows that are drawn, by their ids
};

}  // namespace dayward

// A row of a table screen as QML sees it, with the pictures that it shows made known. Main thread only.
#pragma once

#include <QObject>
#include <QString>
#include <QVariantMap>
#include <QtQml/qqmlregistration.h>

#include "Classes/Interface/Screens/TableRow.h"

namespace dayward {

class Pictures;

class TableRowData {
    Q_GADGET
    QML_VALUE_TYPE(tableRow)
    Q_PROPERTY(QString kind MEMBER kind)
    Q_PROPERTY(QString rowId MEMBER rowId)
    Q_PROPERTY(QString label MEMBER label)
    Q_PROPERTY(QString detail MEMBER detail)
    Q_PROPERTY(QString fontName MEMBER fontName)
    Q_PROPERTY(QString spoken MEMBER spoken)
    Q_PROPERTY(QVariant content MEMBER content)
    Q_PROPERTY(bool hasSwitch MEMBER hasSwitch)
    Q_PROPERTY(bool on MEMBER on)
    Q_PROPERTY(bool canOpen MEMBER canOpen)
    Q_PROPERTY(bool open MEMBER open)
    Q_PROPERTY(bool checked MEMBER checked)
    Q_PROPERTY(bool emphasized MEMBER emphasized)
    Q_PROPERTY(bool inherited MEMBER inherited)
    Q_PROPERTY(bool enabled MEMBER enabled)
    Q_PROPERTY(bool tappable MEMBER tappable)
    Q_PROPERTY(bool opensScreen MEMBER opensScreen)
    Q_PROPERTY(bool startsFocused MEMBER startsFocused)
    Q_PROPERTY(bool isQuiet MEMBER isQuiet)
    Q_PROPERTY(bool canDelete MEMBER canDelete)
    Q_PROPERTY(bool canMove MEMBER canMove)

public:
    TableRowData() = default;
    TableRowData(const TableRow& row, Pictures& pictures);
    /// A section's header or footer, which are rows of the list too.
    TableRowData(QString itsKind, const std::string& text);

    QString kind, rowId, label, detail, fontName, spoken;
    QVariant content = QVariantMap();  ///< a map, by the kind
    bool hasSwitch = false, on = false, canOpen = false, open = false, checked = false, emphasized = false,
         inherited = false, enabled = true, tappable = false, opensScreen = false, startsFocused = false, isQuiet = false, canDelete = false, canMove = false;
};

QString nameOfKind(RowKind kind);

}  // namespace dayward

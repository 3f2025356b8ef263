import QtQuick
import Dayward

// A row that does something; red where it cannot be taken back.
RowFrame {
    id: frame
    showsHead: false
    UiText {
        width: parent.width
        height: Math.max(Theme.rowHeight - 12, implicitHeight)
        topPadding: 12
        horizontalAlignment: Text.AlignHCenter
        verticalAlignment: Text.AlignVCenter
        text: frame.row.label
        font.weight: Font.Medium
        color: frame.row.kind === "destructive" ? Theme.destructive : frame.row.isQuiet ? Theme.secondaryText : Theme.accent
        wrapMode: Text.Wrap
    }
}

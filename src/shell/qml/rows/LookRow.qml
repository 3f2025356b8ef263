import QtQuick
import Dayward

// An event as the list will show it.
RowFrame {
    id: frame
    showsHead: false
    EventLook {
        width: parent.width
        height: implicitHeight + 12
        topInset: 12
        background: frame.row.content.background ?? ""
        icon: frame.row.content.icon ?? ""
        fontName: frame.row.content.fontName ?? ""
        textColor: frame.row.content.textColor ?? "white"
        scrim: frame.row.content.scrim ?? "transparent"
        title: frame.row.content.title ?? ""
        date: frame.row.content.date ?? ""
        countdown: frame.row.content.countdown ?? ""
    }
}

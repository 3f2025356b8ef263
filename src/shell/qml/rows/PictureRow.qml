import QtQuick
import QtQuick.Controls
import Dayward

// A label with a picture: small beside a label that does something, else as large as the window leaves room
// for what a sheet has below it.
RowFrame {
    id: frame
    showsHead: !large
    readonly property bool large: !row.tappable
    // An icon, which has no frame.
    readonly property bool whole: row.content.whole ?? false
    hasBody: large
    takesFocus: row.tappable
    trailing: Component {
        Picture {
            width: frame.whole ? 40 : 56
            height: 40
            radius: frame.whole ? 0 : 8
            whole: frame.whole
            key: frame.row.content.picture ?? ""
            Rectangle {
                anchors.fill: parent
                visible: !frame.whole
                radius: 8
                color: "transparent"
                border.width: 1
                border.color: Theme.separator
            }
        }
    }
    Item {
        visible: frame.large
        width: parent.width
        height: visible ? Math.max(200, Math.min(520, frame.Window.height - 470 * Theme.scale)) : 0
        Picture {
            anchors.fill: parent
            anchors.topMargin: 12
            whole: true
            key: parent.visible ? (frame.row.content.picture ?? "") : ""
        }
        BusyIndicator {
            anchors.centerIn: parent
            running: visible
            visible: parent.visible && (frame.row.content.picture ?? "").length === 0
        }
    }
}

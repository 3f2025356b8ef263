import QtQuick
import QtQuick.Controls
import QtQuick.Layouts
import Dayward

// The line of a row: label, value, switch, and the sign of what a tap does.
Item {
    id: head

    property tableRow row
    property Component trailing: null
    signal toggled(on: bool)
    signal removed

    readonly property int side: 14
    // What the switch, the sign and the trailing item take of the width, about.
    readonly property int taken: 2 * side + (row.hasSwitch ? 66 : 0) + (row.opensScreen || row.canOpen ? 30 : 0) + (trailing ? 66 : 0)
    readonly property bool stacked: row.label.length > 0 && row.detail.length > 0 && label.implicitWidth + detail.implicitWidth + 16 > width - taken

    implicitHeight: Math.max(Theme.rowHeight, texts.implicitHeight + 22)

    RowLayout {
        anchors.fill: parent
        anchors.leftMargin: head.side
        anchors.rightMargin: head.side
        spacing: 10

        BarButton {
            visible: head.row.canDelete
            Layout.leftMargin: -10
            Layout.rightMargin: -8
            symbol: "remove"
            tint: Theme.destructive
            text: Theme.tr("Delete") + ": " + head.row.label
            onClicked: head.removed()
        }
        Item {
            id: texts
            Layout.fillWidth: true
            implicitHeight: head.stacked ? labels.height + 2 + detail.height : Math.max(labels.height, detail.height)
            Column {
                id: labels
                anchors.left: parent.left
                y: head.stacked ? 0 : (parent.height - height) / 2
                width: head.stacked || head.row.detail.length === 0 ? parent.width : parent.width - detail.width - 16
                UiText {
                    id: label
                    width: parent.width
                    text: head.row.label
                    font: head.row.fontName.length > 0 && head.row.detail.length === 0 ? Appearance.font(head.row.fontName, Theme.body + 2) : Qt.font({
                        "family": Theme.family,
                        "pixelSize": Theme.body,
                        "weight": head.row.emphasized ? Font.DemiBold : Font.Normal
                    })
                    wrapMode: Text.Wrap
                }
                UiText {
                    visible: head.row.inherited
                    width: parent.width
                    text: Theme.tr("From the category")
                    font.pixelSize: Theme.caption
                    color: Theme.secondaryText
                    wrapMode: Text.Wrap
                }
            }
            UiText {
                id: detail
                anchors.right: parent.right
                y: head.stacked ? labels.height + 2 : (parent.height - height) / 2
                width: head.stacked ? parent.width : Math.ceil(implicitWidth)
                visible: text.length > 0
                text: head.row.detail
                font: head.row.fontName.length > 0 ? Appearance.font(head.row.fontName, Theme.body) : Qt.font({
                    "family": Theme.family,
                    "pixelSize": Theme.body
                })
                color: Theme.secondaryText
                wrapMode: Text.Wrap
                maximumLineCount: 6
                elide: Text.ElideRight
                horizontalAlignment: head.stacked ? Text.AlignLeft : Text.AlignRight
            }
        }
        Loader {
            active: head.trailing !== null
            visible: active
            sourceComponent: head.trailing
        }
        Switch {
            visible: head.row.hasSwitch
            checked: head.row.on
            enabled: head.row.enabled
            focusPolicy: Qt.NoFocus
            Layout.rightMargin: -6
            // The row speaks for it.
            Accessible.ignored: true
            onToggled: {
                head.toggled(checked)
                checked = Qt.binding(() => head.row.on)
            }
        }
        Symbol {
            visible: head.row.opensScreen || head.row.canOpen
            name: head.row.canOpen ? "open" : "forward"
            size: 20
            color: Theme.secondaryText
            rotation: head.row.canOpen && head.row.open ? 180 : 0
            mirror: Theme.rightToLeft && !head.row.canOpen
            Behavior on rotation {
                NumberAnimation {
                    duration: Theme.calm
                    easing.type: Easing.OutCubic
                }
            }
        }
    }
}

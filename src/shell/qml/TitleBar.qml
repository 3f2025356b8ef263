import QtQuick
import QtQuick.Controls
import Dayward

// The bar on top of a page: back or the screen's leading buttons, its title, the trailing buttons.
FocusScope {
    id: bar

    property string title
    property var buttons: []
    property bool canGoBack: false
    property bool busy: false
    signal back
    signal pressed(role: string)

    property color tint: Theme.accent
    property bool onPicture: false
    readonly property var symbols: ({
            "edit": "edit",
            "add": "add",
            "sort": "sort",
            "info": "settings",
            "share": "share",
            "remove": "delete",
            "today": "today"
        })

    function isLeading(role: string): bool {
        return role === "cancel" || role === "info"
    }

    implicitHeight: Theme.barHeight
    activeFocusOnTab: false

    component Buttons: Row {
        id: row
        property bool leading: false
        Repeater {
            model: bar.buttons.filter(button => bar.isLeading(button.role) === row.leading)
            delegate: BarButton {
                required property var modelData
                text: modelData.label
                symbol: bar.symbols[modelData.role] ?? ""
                strong: modelData.role === "done"
                onPicture: bar.onPicture
                tint: modelData.role === "remove" ? Theme.destructive : bar.tint
                enabled: modelData.enabled
                opacity: modelData.enabled ? 1 : 0.4
                onClicked: bar.pressed(modelData.role)
            }
        }
    }

    Item {
        anchors.fill: parent
        anchors.leftMargin: 4
        anchors.rightMargin: 4

        Row {
            id: leading
            anchors.left: parent.left
            anchors.verticalCenter: parent.verticalCenter
            BarButton {
                visible: bar.canGoBack
                text: Theme.tr("Back")
                symbol: "back"
                tint: bar.tint
                onPicture: bar.onPicture
                onClicked: bar.back()
            }
            Buttons {
                leading: true
            }
        }
        Row {
            id: trailing
            anchors.right: parent.right
            anchors.verticalCenter: parent.verticalCenter
            Buttons {}
        }
        BusyIndicator {
            anchors.right: caption.left
            anchors.rightMargin: -(caption.width - caption.contentWidth) / 2 + 6
            anchors.verticalCenter: parent.verticalCenter
            width: 28
            height: 28
            running: bar.busy
            visible: running
        }
        UiText {
            id: caption
            // In the middle of the bar, or of what the buttons leave where that is too narrow.
            readonly property real start: (Theme.rightToLeft ? trailing : leading).width + 8
            readonly property real end: parent.width - (Theme.rightToLeft ? leading : trailing).width - 8
            readonly property bool fits: implicitWidth <= parent.width - 2 * Math.max(start, parent.width - end)
            anchors.verticalCenter: parent.verticalCenter
            width: Math.min(Math.ceil(implicitWidth), end - start)
            x: fits ? (parent.width - width) / 2 : start + (end - start - width) / 2
            text: bar.title
            color: Theme.text
            font.pixelSize: Theme.headline
            font.weight: Font.DemiBold
            elide: Text.ElideRight
            wrapMode: Text.WordWrap
            maximumLineCount: 2
            fontSizeMode: Text.HorizontalFit
            minimumPixelSize: Theme.caption
            lineHeight: lineCount > 1 ? 0.9 : 1
            horizontalAlignment: Text.AlignHCenter
            Accessible.ignored: text.length === 0
            Accessible.role: Accessible.Heading
            Accessible.name: text
        }
    }
}

import QtQuick
import QtQuick.Controls
import Dayward

// One value of a grid: a picture, a colour or a text, with a ring or a fill where it is chosen.
Item {
    id: tile

    property var item: ({})
    property int place: -1
    property bool round: false
    // Whether others may be chosen too.
    property bool toggles: false
    signal tapped

    readonly property bool chosen: item.selected ?? false
    readonly property bool isText: !(item.hasColor ?? false) && (item.picture ?? "").length === 0

    readonly property string text: item.label ?? ""

    Keys.onReturnPressed: tapped()
    Keys.onEnterPressed: tapped()
    Keys.onSpacePressed: tapped()
    // The role of a control would be that of its kind.
    Accessible.role: toggles ? Accessible.CheckBox : Accessible.RadioButton
    Accessible.name: text
    Accessible.focusable: true
    Accessible.checkable: true
    Accessible.checked: chosen
    Accessible.onPressAction: tapped()
    Accessible.onToggleAction: tapped()
    scale: hand.pressed ? 0.95 : 1
    Behavior on scale {
        NumberAnimation {
            duration: 80
        }
    }
    ToolTip.text: text
    ToolTip.visible: !isText && hover.hovered && ToolTip.text.length > 0
    ToolTip.delay: 700

    TapHandler {
        id: hand
        gesturePolicy: TapHandler.ReleaseWithinBounds
        onTapped: tile.tapped()
    }
    HoverHandler {
        id: hover
    }
    Item {
        anchors.fill: parent
        Rectangle {
            anchors.fill: parent
            visible: tile.isText
            radius: 10
            color: tile.chosen ? Theme.accent : hover.hovered ? Qt.tint(Theme.field, Theme.pressed) : Theme.field
        }
        Rectangle {
            anchors.fill: parent
            visible: !tile.isText && tile.chosen
            radius: tile.round ? width / 2 : Theme.radius
            color: "transparent"
            border.width: 3
            border.color: Theme.accent
        }
        FocusRing {
            target: tile
            radius: tile.round ? width / 2 : Theme.radius
            gap: 2
        }
    }
    Item {
        anchors.fill: parent
        Picture {
            anchors.fill: parent
            anchors.margins: tile.chosen ? 6 : 2
            visible: key.length > 0
            whole: true
            radius: tile.chosen ? 8 : 12
            key: tile.item.picture ?? ""
        }
        Rectangle {
            anchors.fill: parent
            anchors.margins: tile.chosen ? 6 : 3
            visible: tile.item.hasColor ?? false
            radius: tile.round ? width / 2 : 8
            color: tile.item.color ?? "transparent"
            border.width: 1
            border.color: Theme.separator
        }
        UiText {
            anchors.centerIn: parent
            width: parent.width - 6
            visible: tile.isText
            text: tile.text
            font.weight: tile.chosen ? Font.DemiBold : Font.Normal
            fontSizeMode: Text.HorizontalFit
            minimumPixelSize: 10
            color: tile.chosen ? Theme.accentText : Theme.text
            horizontalAlignment: Text.AlignHCenter
            elide: Text.ElideRight
        }
    }
}

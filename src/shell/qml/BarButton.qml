import QtQuick
import QtQuick.Controls
import Dayward

// A button of a title bar: a picture for the usual actions, a text for "Done" and "Cancel".
AbstractButton {
    id: control

    property string symbol
    property bool strong: false
    property color tint: Theme.accent
    // On a picture it has a ground of its own, so that it can be seen on any.
    property bool onPicture: false
    readonly property color ground: !onPicture ? "transparent" : tint.hslLightness > 0.5 ? "#59000000" : "#8cffffff"

    implicitHeight: Theme.target
    implicitWidth: Math.max(Theme.target, symbol.length > 0 ? Theme.target : caption.implicitWidth + 20)
    focusPolicy: Qt.StrongFocus
    hoverEnabled: true
    Accessible.role: Accessible.Button
    Accessible.name: text
    Keys.onReturnPressed: clicked()
    Keys.onEnterPressed: clicked()

    ToolTip.text: text
    ToolTip.visible: symbol.length > 0 && hovered && ToolTip.text.length > 0
    ToolTip.delay: 700

    background: Rectangle {
        radius: height / 2
        color: control.pressed || control.hovered ? Qt.tint(control.ground, Theme.pressed) : control.ground
        FocusRing {
            target: control
            radius: parent.radius
        }
    }
    contentItem: Item {
        Symbol {
            anchors.centerIn: parent
            visible: control.symbol.length > 0
            name: control.symbol
            mirror: Theme.rightToLeft && (name === "back" || name === "forward")
            color: control.tint
        }
        UiText {
            id: caption
            anchors.centerIn: parent
            visible: control.symbol.length === 0
            text: control.text
            color: control.tint
            font.weight: control.strong ? Font.DemiBold : Font.Normal
        }
    }
}

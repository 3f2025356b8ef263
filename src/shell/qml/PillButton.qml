import QtQuick
import QtQuick.Controls
import Dayward

// A broad button: filled with the accent, red for what cannot be taken back, quiet for "Cancel".
AbstractButton {
    id: control

    property string role: "normal"
    readonly property color base: role === "cancel" ? Theme.field : role === "destructive" ? Theme.destructive : Theme.accent

    implicitHeight: Math.max(Theme.target, caption.implicitHeight + 20)
    implicitWidth: caption.implicitWidth + 40
    focusPolicy: Qt.StrongFocus
    hoverEnabled: true
    opacity: enabled ? 1 : 0.45
    Accessible.role: Accessible.Button
    Accessible.name: text
    Keys.onReturnPressed: clicked()
    Keys.onEnterPressed: clicked()

    background: Rectangle {
        radius: height / 2
        color: control.hovered || control.pressed ? Qt.darker(control.base, Theme.dark ? 0.9 : 1.08) : control.base
        FocusRing {
            target: control
            radius: parent.radius
            gap: 3
        }
    }
    contentItem: UiText {
        id: caption
        text: control.text
        font.weight: Font.DemiBold
        color: control.role === "cancel" ? Theme.text : Theme.onFill
        horizontalAlignment: Text.AlignHCenter
        verticalAlignment: Text.AlignVCenter
        wrapMode: Text.Wrap
    }
}

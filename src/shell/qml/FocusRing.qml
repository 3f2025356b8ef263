import QtQuick
import Dayward

// Shows where the keyboard is, around its parent.
Rectangle {
    required property Item target
    property int gap: 0

    anchors.fill: parent
    anchors.margins: -gap
    visible: target.activeFocus && Appearance.keyboardInUse
    color: "transparent"
    radius: Theme.radius
    border.width: 2
    border.color: Theme.accent
    z: 10
}

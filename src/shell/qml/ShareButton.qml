import QtQuick
import QtQuick.Controls
import Dayward

// A glassy button that stands on a picture.
AbstractButton {
    id: control

    property string symbol
    property string spoken: text
    property color tint: "white"
    readonly property bool light: tint.hslLightness > 0.5

    implicitHeight: Theme.target
    implicitWidth: content.implicitWidth + 32
    focusPolicy: Qt.StrongFocus
    hoverEnabled: true
    Accessible.role: Accessible.Button
    Accessible.name: spoken
    Keys.onReturnPressed: clicked()
    Keys.onEnterPressed: clicked()

    background: Rectangle {
        radius: height / 2
        color: control.light ? (control.hovered ? "#80000000" : "#59000000") : (control.hovered ? "#b3ffffff" : "#8cffffff")
        border.width: 1
        border.color: control.light ? "#33ffffff" : "#1f000000"
        FocusRing {
            target: control
            radius: parent.radius
        }
    }
    contentItem: Item {
        Row {
            id: content
            anchors.centerIn: parent
            spacing: 8
            Symbol {
                anchors.verticalCenter: parent.verticalCenter
                name: control.symbol
                size: 20
                color: control.tint
            }
            UiText {
                anchors.verticalCenter: parent.verticalCenter
                text: control.text
                color: control.tint
                font.weight: Font.Medium
            }
        }
    }
}

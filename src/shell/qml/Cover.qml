import QtQuick
import QtQuick.Controls

// Hides all that the window shows, sheets and questions too.
Rectangle {
    parent: Overlay.overlay
    anchors.fill: parent
    z: 1000

    MouseArea {
        anchors.fill: parent
        hoverEnabled: true
        onWheel: wheel => wheel.accepted = true
    }
}

import QtQuick
import Dayward

// A row's part of its section's card: round at the section's ends, a line towards the next row.
Item {
    id: slice
    property bool first: false
    property bool last: false
    property bool highlighted: false

    component Fill: Rectangle {
        anchors.fill: parent
        radius: Theme.radius
        Rectangle {
            visible: !slice.first
            width: parent.width
            height: Math.min(parent.height, Theme.radius)
            color: parent.color
        }
        Rectangle {
            visible: !slice.last
            y: parent.height - height
            width: parent.width
            height: Math.min(parent.height, Theme.radius)
            color: parent.color
        }
    }
    Fill {
        color: slice.highlighted ? Qt.tint(Theme.card, Theme.pressed) : Theme.card
        Behavior on color {
            ColorAnimation {
                duration: Theme.quick
            }
        }
    }
    Rectangle {
        visible: !slice.last
        x: Theme.rightToLeft ? 0 : 14
        width: parent.width - 14
        height: 1
        y: parent.height - 1
        color: Theme.separator
    }
}

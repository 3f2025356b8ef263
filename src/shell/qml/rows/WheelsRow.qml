import QtQuick
import Dayward

// One value of each of some columns to pick.
RowFrame {
    id: frame
    readonly property var wheels: row.content.wheels ?? []

    Row {
        spacing: 0
        anchors.horizontalCenter: parent.horizontalCenter
        Repeater {
            id: columns
            model: frame.isOpen ? frame.wheels.length : 0
            delegate: Wheel {
                required property int index
                focus: index === 0
                width: Math.min(180, (frame.body.width) / frame.wheels.length)
                titles: frame.wheels[index]?.titles ?? []
                selected: frame.wheels[index]?.selected ?? 0
                spoken: frame.row.label
                onPicked: place => {
                    const places = frame.wheels.map(wheel => wheel.selected)
                    places[index] = place
                    frame.rows.pickWheels(frame.index, places)
                }
            }
        }
    }
}

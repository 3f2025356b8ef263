import QtQuick
import QtQuick.Controls
import Dayward

// One column of values that turns: by finger, mouse wheel and arrow keys.
Tumbler {
    id: wheel

    property var titles: []
    property int selected: 0
    property string spoken
    signal picked(place: int)

    // What the row says counts; the wheel turns there.
    function follow() {
        if (currentIndex !== selected && !moving && selected < count)
            currentIndex = selected
    }

    model: titles
    height: Math.round(180 * Theme.scale)
    visibleItemCount: 5
    wrap: false
    activeFocusOnTab: true
    Component.onCompleted: {
        positionViewAtIndex(selected, Tumbler.Center)
        follow()
    }
    onSelectedChanged: follow()
    onMovingChanged: if (!moving && currentIndex !== selected)
        picked(currentIndex)
    onCurrentIndexChanged: if (activeFocus && !moving && currentIndex !== selected)
        picked(currentIndex)
    Accessible.role: Accessible.SpinBox
    Accessible.name: spoken + ", " + (titles[currentIndex] ?? "")

    WheelHandler {
        acceptedDevices: PointerDevice.Mouse | PointerDevice.TouchPad
        property int turned: 0
        onWheel: event => {
            turned += event.angleDelta.y
            const steps = Math.trunc(turned / 120)
            if (steps === 0)
                return
            turned -= steps * 120
            wheel.picked(Math.max(0, Math.min(wheel.count - 1, wheel.currentIndex - steps)))
        }
    }

    background: Item {
        Rectangle {
            anchors.centerIn: parent
            width: parent.width - 8
            height: parent.height / 5
            radius: 10
            color: Theme.field
            FocusRing {
                target: wheel
                radius: 10
            }
        }
    }
    delegate: UiText {
        required property int index
        required property string modelData
        readonly property real distance: Math.abs(Tumbler.displacement)
        text: modelData
        opacity: 1 - Math.min(0.8, distance * 0.35)
        font.weight: distance < 0.5 ? Font.DemiBold : Font.Normal
        fontSizeMode: Text.HorizontalFit
        minimumPixelSize: 11
        horizontalAlignment: Text.AlignHCenter
        verticalAlignment: Text.AlignVCenter
        TapHandler {
            onTapped: wheel.picked(parent.index)
        }
    }
}

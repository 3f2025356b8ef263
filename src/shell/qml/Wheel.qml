import QtQuick
import QtQuick.Controls
import Dayward

// One column of values that turns: by finger, mouse wheel and arrow keys.
Item {
    id: root

    property var titles: []
    property int selected: 0
    property string spoken
    signal picked(place: int)

    function turn(steps: int) {
        const place = Math.max(0, Math.min(titles.length - 1, wheel.currentIndex + steps))
        if (place !== selected)
            picked(place)
    }

    implicitHeight: Math.round(180 * Theme.scale)
    activeFocusOnTab: true
    // The role of a control would be that of its kind.
    Accessible.role: Accessible.SpinBox
    Accessible.name: spoken + ", " + (titles[wheel.currentIndex] ?? "")
    Accessible.focusable: true
    Keys.onUpPressed: turn(-1)
    Keys.onDownPressed: turn(1)
    Accessible.onIncreaseAction: root.turn(1)
    Accessible.onDecreaseAction: root.turn(-1)

    Tumbler {
        id: wheel

        // What the row says counts; the wheel turns there.
        function follow() {
            if (currentIndex !== root.selected && !moving && root.selected < count)
                currentIndex = root.selected
        }

        anchors.fill: parent
        activeFocusOnTab: false
        Accessible.ignored: true
        model: root.titles
        visibleItemCount: 5
        wrap: false
        Component.onCompleted: {
            positionViewAtIndex(root.selected, Tumbler.Center)
            follow()
        }
        onMovingChanged: if (!moving && currentIndex !== root.selected)
            root.picked(currentIndex)
        Connections {
            target: root
            function onSelectedChanged() {
                wheel.follow()
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
                    target: root
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
                onTapped: root.picked(parent.index)
            }
        }
    }
    Item {
        // Above the wheel's own view, which would go as far as a list does.
        anchors.fill: parent
        WheelHandler {
            acceptedDevices: PointerDevice.Mouse | PointerDevice.TouchPad
            property int turned: 0
            onWheel: event => {
                turned += event.angleDelta.y
                const steps = Math.trunc(turned / 120)
                turned -= steps * 120
                if (steps !== 0)
                    root.turn(-steps)
            }
        }
    }
}

import QtQuick
import Dayward

// What a row of the order made by hand is moved by, while the list is edited. Near the ends of the list
// it scrolls.
Item {
    id: handle

    required property Item row
    required property var list
    // Of the row in the list.
    required property int place
    property color color
    readonly property bool dragging: drag.active
    // Where in the list's content the finger has the row.
    readonly property real rowY: drag.fingerY - drag.grip

    Symbol {
        anchors.centerIn: parent
        name: "drag"
        color: handle.color
    }
    HoverHandler {
        cursorShape: drag.active ? Qt.ClosedHandCursor : Qt.OpenHandCursor
    }
    DragHandler {
        id: drag
        target: null
        xAxis.enabled: false
        dragThreshold: 4
        // Of the list's content, and of the row where it was taken.
        property real fingerY: 0
        property real grip: 0
        readonly property real fromTop: fingerY - handle.list.contentY
        readonly property int pace: !active ? 0 : fromTop < 56 ? -8 : fromTop > handle.list.height - 56 ? 8 : 0

        function follow() {
            fingerY = handle.list.contentItem.mapFromItem(null, centroid.scenePosition.x, centroid.scenePosition.y).y
            const over = handle.list.indexAt(handle.list.width / 2, fingerY)
            if (over >= 0 && over !== handle.place && handle.list.rows.canMove(handle.place, over))
                handle.list.rows.dragRow(handle.place, over)
        }
        onActiveChanged: if (active) {
            grip = handle.row.mapFromItem(null, centroid.scenePressPosition.x, centroid.scenePressPosition.y).y
            follow()
        }
        onCentroidChanged: if (active)
            follow()
    }
    Timer {
        interval: 16
        repeat: true
        running: drag.pace !== 0
        onTriggered: {
            handle.list.scrollBy(drag.pace)
            drag.follow()
        }
    }
}

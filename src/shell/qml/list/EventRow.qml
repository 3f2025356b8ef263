import QtQuick
import QtQuick.Controls
import Dayward

// An event of the list: tap opens it, a swipe or a right click offers to delete it, a long press while
// the order is the user's own drags it.
Item {
    id: root

    required property eventRow row
    required property int index
    // The list that shows it; its own type would refer to this one.
    required property var list

    readonly property bool isHeader: false
    readonly property bool selected: list.screen.selectedKey.length > 0 && list.screen.selectedKey === row.eventKey
    readonly property bool isCurrent: ListView.isCurrentItem && list.activeFocus && Appearance.keyboardInUse
    readonly property bool editing: list.screen.editing
    property string shownKey
    property real swiped: 0

    function remove() {
        list.rows.removeRow(index)
    }

    width: ListView.view?.width ?? 0
    height: list.rowHeight + 8
    z: drag.active ? 2 : 1

    Component.onCompleted: {
        shownKey = row.eventKey
        list.rows.show(shownKey)
    }
    Component.onDestruction: list?.rows?.hide(shownKey)
    ListView.onPooled: {
        list.rows.hide(shownKey)
        shownKey = ""
        swiped = 0
    }
    ListView.onReused: {
        opacity = 1
        scale = 1
        shownKey = row.eventKey
        list.rows.show(shownKey)
    }
    onRowChanged: {
        if (shownKey.length === 0 || row.eventKey === shownKey || row.eventKey.length === 0)
            return
        list.rows.show(row.eventKey)
        list.rows.hide(shownKey)
        shownKey = row.eventKey
    }

    Accessible.role: Accessible.ListItem
    Accessible.name: row.spoken
    Accessible.selected: selected
    Accessible.focusable: true
    Accessible.onPressAction: list.rows.select(index)

    Loader {
        anchors.fill: card
        active: card.x < root.list.inset - 1
        sourceComponent: Rectangle {
            radius: Theme.radius
            color: Theme.destructive
            Symbol {
                anchors.right: parent.right
                anchors.rightMargin: 26
                anchors.verticalCenter: parent.verticalCenter
                name: "delete"
                color: "#ffffff"
            }
            TapHandler {
                onTapped: root.remove()
            }
        }
    }
    Item {
        id: card
        x: root.list.inset + root.swiped
        y: 4
        width: root.width - 2 * root.list.inset
        height: root.list.rowHeight
        scale: drag.active ? 1.03 : hand.pressed ? 0.985 : 1
        Behavior on scale {
            NumberAnimation {
                duration: Theme.quick
            }
        }
        Behavior on x {
            enabled: !swipe.active
            NumberAnimation {
                duration: Theme.quick
                easing.type: Easing.OutCubic
            }
        }

        EventLook {
            anchors.fill: parent
            background: root.row.background
            icon: root.row.icon
            fontName: root.row.fontName
            textColor: root.row.textColor
            scrim: root.row.scrim
            title: root.row.title
            date: root.row.date
            countdown: root.row.countdown
            missed: root.row.missed
            trailingSpace: root.editing ? 48 : 0
        }
        Rectangle {
            anchors.fill: parent
            anchors.margins: -3
            visible: root.selected || root.isCurrent
            radius: Theme.radius + 3
            color: "transparent"
            border.width: 3
            border.color: Theme.accent
        }
        Loader {
            anchors.right: parent.right
            anchors.rightMargin: 6
            anchors.verticalCenter: parent.verticalCenter
            active: root.editing
            sourceComponent: BarButton {
                symbol: "delete"
                tint: root.row.textColor
                text: Theme.tr("Delete") + ": " + root.row.title
                onClicked: root.remove()
            }
        }
        TapHandler {
            id: hand
            acceptedButtons: Qt.LeftButton
            gesturePolicy: TapHandler.ReleaseWithinBounds
            onTapped: {
                if (root.swiped !== 0)
                    root.swiped = 0
                else
                    root.list.rows.select(root.index)
            }
            onLongPressed: if (!drag.enabled)
                root.list.offerActions(root.row.eventKey)
        }
        TapHandler {
            acceptedButtons: Qt.RightButton
            onTapped: root.list.offerActions(root.row.eventKey)
        }
        DragHandler {
            id: swipe
            target: null
            yAxis.enabled: false
            enabled: !root.editing
            acceptedDevices: PointerDevice.TouchScreen | PointerDevice.Mouse
            dragThreshold: 16
            property real start: 0
            onActiveChanged: {
                if (active)
                    start = root.swiped
                else if (root.swiped < -root.width * 0.55)
                    root.remove()
                else
                    root.swiped = root.swiped < -48 ? -80 : 0
            }
            onActiveTranslationChanged: if (active)
                root.swiped = Math.min(0, start + activeTranslation.x)
        }
        DragHandler {
            id: drag
            target: null
            xAxis.enabled: false
            enabled: root.editing
            dragThreshold: 4
            onCentroidChanged: {
                if (!active)
                    return
                const point = root.list.contentItem.mapFromItem(card, centroid.position.x, centroid.position.y)
                const over = root.list.indexAt(root.width / 2, point.y)
                if (over >= 0 && over !== root.index && root.list.rows.canMove(root.index, over))
                    root.list.rows.dragRow(root.index, over)
            }
        }
    }
}

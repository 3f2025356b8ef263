import QtQuick
import Dayward

// An event of the list: tap opens it, a swipe or a right click offers to delete it. While the list is
// edited a button does, and a handle moves the row where the order is the user's own.
EventRowItem {
    id: root

    required property int index
    // The list that shows it; its own type would refer to this one.
    required property var list

    readonly property bool isHeader: false
    readonly property bool selected: list.screen.selectedKey.length > 0 && list.screen.selectedKey === row.eventKey
    readonly property bool isCurrent: ListView.isCurrentItem && list.activeFocus && Appearance.keyboardInUse
    readonly property bool editing: list.screen.editing
    readonly property bool movable: editing && rows.canMove(index, index)
    readonly property RowHandle mover: handle.item as RowHandle
    readonly property bool dragged: mover?.dragging ?? false
    // How far the card has gone towards the start of the line.
    property real swiped: 0
    readonly property int way: Theme.rightToLeft ? 1 : -1

    function remove() {
        rows.removeRow(index)
    }

    width: ListView.view?.width ?? 0
    height: list.rowHeight + 8
    z: dragged ? 2 : 1

    rows: list.rows
    ListView.onPooled: {
        pooled = true
        swiped = 0
    }
    ListView.onReused: {
        pooled = false
        // As its removal left it.
        x = 0
        opacity = 1
        scale = 1
    }

    focus: ListView.isCurrentItem
    Accessible.role: Accessible.ListItem
    Accessible.name: row.spoken
    Accessible.selected: selected
    Accessible.focusable: true
    Accessible.onPressAction: rows.select(index)

    Loader {
        // Under the card, which uncovers it as it goes.
        x: root.list.inset
        y: card.y
        width: card.width
        height: card.height
        active: Math.abs(card.x - root.list.inset) > 1
        sourceComponent: Rectangle {
            radius: Theme.radius
            color: Theme.destructive
            Symbol {
                anchors.right: parent.right
                anchors.rightMargin: 26
                anchors.verticalCenter: parent.verticalCenter
                name: "delete"
                color: Theme.onFill
            }
            Item {
                // What is uncovered; a hand on the card is not meant for what lies below.
                anchors.right: parent.right
                width: root.swiped
                height: parent.height
                TapHandler {
                    gesturePolicy: TapHandler.ReleaseWithinBounds
                    onTapped: root.remove()
                }
            }
        }
    }
    Item {
        id: card
        x: root.list.inset + root.way * root.swiped
        // The row that is moved stands where the finger has it, wherever its place is by now.
        y: 4 + (root.dragged ? root.mover.rowY - root.y : 0)
        width: root.width - 2 * root.list.inset
        height: root.list.rowHeight
        scale: root.dragged ? 1.03 : hand.pressed ? 0.985 : 1
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
            trailingSpace: root.movable ? 96 : root.editing ? 48 : 0
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
            anchors.right: handle.left
            anchors.verticalCenter: parent.verticalCenter
            active: root.editing
            sourceComponent: BarButton {
                symbol: "delete"
                tint: root.row.textColor
                text: Theme.tr("Delete") + ": " + root.row.title
                focusPolicy: Qt.NoFocus
                onClicked: root.remove()
            }
        }
        Loader {
            id: handle
            anchors.right: parent.right
            anchors.rightMargin: 6
            height: parent.height
            width: active ? Theme.target : 0
            active: root.movable
            sourceComponent: RowHandle {
                row: root
                list: root.list
                place: root.index
                color: root.row.textColor
            }
        }
        TapHandler {
            id: hand
            acceptedButtons: Qt.LeftButton
            gesturePolicy: TapHandler.ReleaseWithinBounds
            onTapped: {
                if (root.swiped !== 0) {
                    root.swiped = 0
                    return
                }
                root.list.currentIndex = root.index
                root.rows.select(root.index)
            }
            onLongPressed: if (!root.editing)
                root.list.offerActions(root.row.eventKey, root.row.missed)
        }
        TapHandler {
            // A finger has no buttons, and would count as any.
            acceptedDevices: PointerDevice.Mouse | PointerDevice.TouchPad
            acceptedButtons: Qt.RightButton
            onTapped: root.list.offerActions(root.row.eventKey, root.row.missed)
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
                else if (root.swiped > root.width * 0.55)
                    root.remove()
                else
                    root.swiped = root.swiped > 48 ? 80 : 0
            }
            onActiveTranslationChanged: if (active)
                root.swiped = Math.max(0, start + root.way * activeTranslation.x)
        }
    }
}

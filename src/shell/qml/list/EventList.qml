import QtQuick
import QtQuick.Controls
import Qt.labs.qmlmodels
import Dayward

// The events, each a row with its picture; changes are animated, the keyboard goes from row to row.
ListView {
    id: rowsView

    required property EventListModel rows
    required property ListItem screen
    readonly property int rowHeight: Theme.eventHeight
    readonly property int inset: Theme.listInset

    // The keyboard goes to the first row at or behind that place; false where there is none.
    function goTo(place: int, by: int): bool {
        let next = place
        while (next >= 0 && next < count && !rows.isRow(next))
            next += by
        if (next < 0 || next >= count)
            return false
        currentIndex = next
        positionViewAtIndex(next, ListView.Contain)
        return true
    }
    function step(by: int): bool {
        return goTo(currentIndex + by, by)
    }
    function page(by: int): bool {
        const rowsInSight = Math.max(1, Math.floor(height / (rowHeight + 8)) - 1)
        const place = Math.max(0, Math.min(count - 1, currentIndex + by * rowsInSight))
        return goTo(place, by) || goTo(place, -by)
    }
    function scrollBy(distance: real) {
        const end = originY + Math.max(0, contentHeight + bottomMargin - height)
        contentY = Math.max(originY, Math.min(end, contentY + distance))
    }
    // Where the row of the keyboard has gone, the next one takes its place.
    function stayOnRow() {
        if (currentIndex >= 0 && !rows.isRow(currentIndex) && !goTo(currentIndex, 1))
            goTo(currentIndex, -1)
    }

    // What a long press, the right button or the menu's key offers for a row.
    function offerActions(eventKey: string, missed: bool) {
        actions.createObject(rowsView, {
            "eventKey": eventKey,
            "missed": missed
        }).popup() // qmllint disable
    }

    Accessible.role: Accessible.List
    Accessible.name: (screen as ScreenItem).title

    model: rows
    clip: true
    reuseItems: true
    cacheBuffer: spareRows.running ? 900 : 300
    currentIndex: -1
    keyNavigationEnabled: false
    // A search in which nothing is typed yet ends when the keyboard leaves its field.
    activeFocusOnTab: activeFocus || count > 0 || (screen.searching && screen.searchText.length === 0)
    bottomMargin: 88
    boundsBehavior: Flickable.DragOverBounds
    highlightFollowsCurrentItem: false

    Binding {
        target: rowsView.rows // qmllint disable type
        property: "rowSize"
        value: Qt.size(Math.round((rowsView.width - 2 * rowsView.inset) * Screen.devicePixelRatio), Math.round(rowsView.rowHeight * Screen.devicePixelRatio))
        when: rowsView.width > 100
    }
    onContentYChanged: rows.offset = contentY - originY
    // Let go beyond its top, the list goes on by itself, back to where it belongs.
    onDragEnded: screen.endDrag(flicking || contentY < originY)
    onCountChanged: Qt.callLater(stayOnRow) // qmllint disable
    onActiveFocusChanged: if (activeFocus && currentIndex < 0)
        step(1)
    Keys.onPressed: event => {
        const row = itemAtIndex(currentIndex)
        if (event.key === Qt.Key_Down && (event.modifiers & Qt.AltModifier))
            rows.stepRow(currentIndex, true) && ++currentIndex
        else if (event.key === Qt.Key_Up && (event.modifiers & Qt.AltModifier))
            rows.stepRow(currentIndex, false) && --currentIndex
        else if (event.key === Qt.Key_Down)
            event.accepted = step(1)
        else if (event.key === Qt.Key_Up)
            event.accepted = step(-1)
        else if (event.key === Qt.Key_Home)
            event.accepted = goTo(0, 1)
        else if (event.key === Qt.Key_End)
            event.accepted = goTo(count - 1, -1)
        else if (event.key === Qt.Key_PageDown)
            event.accepted = page(1)
        else if (event.key === Qt.Key_PageUp)
            event.accepted = page(-1)
        else if (event.key === Qt.Key_Return || event.key === Qt.Key_Enter || event.key === Qt.Key_Space)
            rows.select(currentIndex)
        else if (event.key === Qt.Key_Delete)
            rows.removeRow(currentIndex)
        else if (row && (event.key === Qt.Key_Menu || event.key === Qt.Key_F10 && (event.modifiers & Qt.ShiftModifier)))
            offerActions(row.row.eventKey, row.row.missed)
        else
            return
        if (row || event.accepted)
            event.accepted = true
    }

    // As many rows as a fling needs at once are made while nothing moves, and then put aside for it.
    Timer {
        id: spareRows
        interval: 500
        running: true
    }

    ScrollBar.vertical: ScrollBar {
        Accessible.ignored: true
    }

    header: Item {
        id: top
        // Points beyond the top.
        readonly property real pulled: rowsView.originY - rowsView.contentY
        width: rowsView.width
        height: 0
        UiText {
            readonly property bool clears: top.pulled > 150
            anchors.bottom: parent.top
            anchors.bottomMargin: 24
            anchors.horizontalCenter: parent.horizontalCenter
            opacity: Math.min(1, Math.max(0, (top.pulled - 40) / 80))
            text: Theme.tr(clears ? "Release to clear" : "Pull to clear")
            color: Theme.secondaryText
            font.pixelSize: Theme.small
        }
    }

    Component {
        id: actions
        Menu {
            id: menu
            required property string eventKey
            required property bool missed
            onClosed: destroy()
            MenuItem {
                text: Theme.tr("Open")
                onTriggered: rowsView.rows.select(rowsView.rows.placeOfEvent(menu.eventKey))
            }
            MenuItem {
                text: Theme.tr("Delete")
                onTriggered: rowsView.rows.removeRow(rowsView.rows.placeOfEvent(menu.eventKey))
            }
            MenuItem {
                text: Theme.tr("Clear missed events")
                visible: menu.missed
                height: visible ? implicitHeight : 0
                onTriggered: rowsView.screen.clearMissed()
            }
        }
    }

    add: Transition {
        NumberAnimation {
            property: "opacity"
            from: 0
            to: 1
            duration: Theme.calm
        }
        NumberAnimation {
            property: "scale"
            from: 0.96
            to: 1
            duration: Theme.calm
            easing.type: Easing.OutCubic
        }
    }
    remove: Transition {
        NumberAnimation {
            property: "opacity"
            to: 0
            duration: Theme.quick
        }
        NumberAnimation {
            property: "x"
            to: Theme.rightToLeft ? 60 : -60
            duration: Theme.calm
            easing.type: Easing.InCubic
        }
    }
    component Motion: Transition {
        NumberAnimation {
            properties: "y"
            duration: Theme.calm
            easing.type: Easing.OutCubic
        }
        NumberAnimation {
            properties: "opacity,scale"
            to: 1
            duration: Theme.quick
        }
    }
    move: Motion {}
    displaced: Motion {}
    moveDisplaced: Motion {}

    delegate: DelegateChooser {
        role: "kind"
        DelegateChoice {
            roleValue: "header"
            EventHeader {}
        }
        DelegateChoice {
            roleValue: "event"
            EventRow {
                list: rowsView
            }
        }
    }
}

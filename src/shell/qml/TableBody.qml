import QtQuick
import QtQuick.Controls
import Qt.labs.qmlmodels
import Dayward

// The rows of a table screen, each drawn by its kind.
ListView {
    id: list

    required property TableModel rows
    property bool compact: false
    property bool hasStarted: false
    // Rows have come, gone or moved: the others slide to where they belong now.
    readonly property bool sliding: others.running
    // Tab is pressed where a row would take it for itself.
    signal tabbed(forward: bool)

    // The keyboard goes to the next row that takes it, from the one at that place on; rows out of sight are
    // made for it. False where there is none.
    function focusFrom(place: int, forward: bool): bool {
        for (let next = place; next >= 0 && next < count; next += forward ? 1 : -1) {
            if (!itemAtIndex(next))
                positionViewAtIndex(next, ListView.Contain)
            const row = itemAtIndex(next)
            const stops = row?.enabled ? Theme.stopsIn(row) : []
            if (stops.length === 0)
                continue
            stops[forward ? 0 : stops.length - 1].forceActiveFocus(forward ? Qt.TabFocusReason : Qt.BacktabFocusReason)
            return true
        }
        return false
    }
    // To the first row, or going back to the last one.
    function focusEnd(forward: bool): bool {
        return focusFrom(forward ? 0 : count - 1, forward)
    }
    // From where the keyboard is to the next stop of the row or of the next one.
    function focusNext(forward: bool): bool {
        const now = Window.activeFocusItem
        let row = now
        while (row && row.parent !== contentItem)
            row = row.parent
        if (!row)
            return focusEnd(forward)
        const stops = Theme.stopsIn(row)
        const present = stops.reduce((found, stop, place) => Theme.isWithin(stop, now) ? place : found, -1)
        const next = stops[present + (forward ? 1 : -1)]
        // Coming back later, the row itself has the keyboard, and not what was last in it.
        for (let left = now; left !== row; left = left.parent)
            left.focus = false
        if (!next)
            return focusFrom(row.index + (forward ? 1 : -1), forward)
        next.forceActiveFocus(forward ? Qt.TabFocusReason : Qt.BacktabFocusReason)
        return true
    }

    // Brings a row into sight. The view's own way lays rows that are on their move over one another.
    function reveal(row: Item) {
        if (height > 0)
            contentY = Math.min(row.y, Math.max(contentY, row.y + row.height - height))
    }

    // True once: for the row that the keyboard is on when the screen opens.
    function takeStart(): bool {
        const isFirst = !hasStarted
        hasStarted = true
        return isFirst
    }

    model: rows
    // A current row would take the keyboard from the one that starts with it.
    currentIndex: -1
    implicitHeight: contentHeight
    clip: true
    cacheBuffer: 1600
    boundsBehavior: Flickable.StopAtBounds
    keyNavigationEnabled: false
    reuseItems: false
    activeFocusOnTab: false
    bottomMargin: compact ? 8 : 32
    // From no row to the first one.
    Keys.onDownPressed: focusNext(true)
    Keys.onUpPressed: focusNext(false)

    ScrollBar.vertical: ScrollBar {
        Accessible.ignored: true
    }

    Connections {
        target: list.rows
        function onRowsInserted() {
            others.restart()
        }
        function onRowsRemoved() {
            others.restart()
        }
        function onRowsMoved() {
            others.restart()
        }
    }
    Timer {
        id: others
        interval: Theme.quick
    }

    remove: Transition {
        NumberAnimation {
            property: "opacity"
            to: 0
            duration: Theme.quick
        }
    }

    delegate: DelegateChooser {
        role: "kind"
        DelegateChoice {
            roleValue: "header"
            SectionHeader {}
        }
        DelegateChoice {
            roleValue: "footer"
            SectionFooter {}
        }
        DelegateChoice {
            roleValue: "text"
            TextRow {}
        }
        DelegateChoice {
            roleValue: "check"
            CheckRow {}
        }
        DelegateChoice {
            roleValue: "textField"
            TextFieldRow {}
        }
        DelegateChoice {
            roleValue: "textArea"
            TextAreaRow {}
        }
        DelegateChoice {
            roleValue: "date"
            DateRow {}
        }
        DelegateChoice {
            roleValue: "wheels"
            WheelsRow {}
        }
        DelegateChoice {
            roleValue: "grid"
            GridRow {}
        }
        DelegateChoice {
            roleValue: "picture"
            PictureRow {}
        }
        DelegateChoice {
            roleValue: "color"
            ColorRow {}
        }
        DelegateChoice {
            roleValue: "look"
            LookRow {}
        }
        DelegateChoice {
            roleValue: "eventHeader"
            EventHeaderRow {}
        }
        DelegateChoice {
            roleValue: "action"
            ActionRow {}
        }
        DelegateChoice {
            roleValue: "destructive"
            ActionRow {}
        }
        DelegateChoice {
            RowFrame {}
        }
    }
}

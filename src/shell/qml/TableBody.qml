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
    Keys.onDownPressed: list.nextItemInFocusChain(true).forceActiveFocus(Qt.TabFocusReason)
    Keys.onUpPressed: list.nextItemInFocusChain(false).forceActiveFocus(Qt.BacktabFocusReason)

    ScrollBar.vertical: ScrollBar {}

    component Motion: Transition {
        NumberAnimation {
            properties: "y"
            duration: Theme.calm
            easing.type: Easing.OutCubic
        }
        NumberAnimation {
            property: "opacity"
            to: 1
            duration: Theme.quick
        }
    }
    add: Transition {
        NumberAnimation {
            property: "opacity"
            from: 0
            to: 1
            duration: Theme.calm
        }
    }
    remove: Transition {
        NumberAnimation {
            property: "opacity"
            to: 0
            duration: Theme.quick
        }
    }
    move: Motion {}
    displaced: Motion {}

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

import QtQuick
import QtQuick.Controls
import Dayward

// A modal stack: a sheet in the middle of a wide window, a page over the whole of a narrow one.
Popup {
    id: sheet

    required property StackItem stack
    // What lies over all else in the window.
    property QtObject top: null
    readonly property bool isPage: parent.width < Theme.twoColumns
    property real shift: 0

    parent: Overlay.overlay
    width: isPage ? parent.width : Math.min(600, parent.width - 96)
    height: isPage ? parent.height : Math.min(820, parent.height - 64)
    x: (parent.width - width) / 2
    y: (isPage ? 0 : (parent.height - height) / 2) + shift
    padding: 0
    modal: true
    focus: true
    closePolicy: Popup.NoAutoClose
    onClosed: destroy()

    Overlay.modal: Rectangle {
        color: Theme.dim
        Behavior on opacity {
            NumberAnimation {
                duration: Theme.calm
            }
        }
    }
    background: Rectangle {
        color: Theme.window
        radius: sheet.isPage ? 0 : 18
    }
    contentItem: Coverable {
        id: content
        covered: sheet.top !== sheet

        ScreenStack {
            anchors.fill: parent
            stack: sheet.stack
            covered: content.covered
            radius: sheet.isPage ? 0 : 18
            focus: true
            // Pages are cut to the sheet's round corners.
            clip: true
            Keys.onEscapePressed: Shell.goBack()
            Keys.onBackPressed: Shell.goBack()

            // "Done" wherever the keyboard is; on a screen that has none, back to the one that has.
            Shortcut {
                sequences: ["Ctrl+Return", "Ctrl+Enter"]
                onActivated: Shell.press("done") || Shell.goBack()
            }
        }
    }
    enter: Transition {
        NumberAnimation {
            property: "shift"
            from: sheet.isPage ? sheet.height : 60
            to: 0
            duration: Theme.calm
            easing.type: Easing.OutCubic
        }
        NumberAnimation {
            property: "opacity"
            from: sheet.isPage ? 1 : 0
            to: 1
            duration: Theme.quick
        }
    }
    exit: Transition {
        NumberAnimation {
            property: "shift"
            to: sheet.isPage ? sheet.height : 60
            duration: Theme.calm
            easing.type: Easing.InCubic
        }
        NumberAnimation {
            property: "opacity"
            to: sheet.isPage ? 1 : 0
            duration: Theme.calm
        }
    }
}

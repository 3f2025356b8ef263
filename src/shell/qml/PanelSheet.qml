import QtQuick
import Dayward

// The small screen at the bottom of a page, which stays in sight above it.
FocusScope {
    id: sheet

    property ScreenItem panel: null
    property ScreenItem shown: null

    visible: shown !== null
    onPanelChanged: {
        if (panel) {
            // A page is one screen's from its beginning to its end; the last one may still be going.
            body.active = false
            shown = panel
            body.active = true
            disappear.stop()
            appear.restart()
        } else if (shown) {
            disappear.restart()
        }
    }

    Rectangle {
        anchors.fill: parent
        color: Theme.dim
        opacity: card.shownPart * 0.6
    }
    TapHandler {
        // Otherwise what lies below would be tapped, too.
        gesturePolicy: TapHandler.ReleaseWithinBounds
        onTapped: if (sheet.panel)
            sheet.panel.goBack()
    }
    Rectangle {
        id: card
        property real shownPart: 0
        readonly property real wantedHeight: Math.min(sheet.height - 24, (body.item?.implicitHeight ?? 0) + 12)
        width: Math.min(parent.width, 520)
        anchors.horizontalCenter: parent.horizontalCenter
        height: wantedHeight + radius
        y: sheet.height - wantedHeight * shownPart
        radius: 20
        color: Theme.window
        TapHandler {
            // The panel itself is not beside it.
            gesturePolicy: TapHandler.ReleaseWithinBounds
        }
        Loader {
            id: body
            active: false
            width: card.width
            height: card.wantedHeight
            focus: true
            sourceComponent: ScreenPage {
                screen: sheet.shown
                isPanel: true
                focus: true
            }
        }
    }
    NumberAnimation {
        id: appear
        target: card
        property: "shownPart"
        to: 1
        duration: Theme.calm
        easing.type: Easing.OutCubic
        onFinished: body.forceActiveFocus()
    }
    NumberAnimation {
        id: disappear
        target: card
        property: "shownPart"
        to: 0
        duration: Theme.quick
        onFinished: {
            body.active = false
            sheet.shown = null
        }
    }
}

import QtQuick
import QtQuick.Controls
import Dayward

// A word in passing, or what can still be taken back for some seconds.
Rectangle {
    id: bar

    property bool covered: false

    property int number: 0
    property string text
    property string action
    property bool shown: false
    // From 0 to 1. A place that moved by itself would lag behind the edge of a window that grows.
    property real risen: shown ? 1 : 0
    required property Item home
    readonly property Item over: Overlay.overlay

    function show(itsNumber: int, content: var) {
        number = itsNumber
        text = content.text
        action = content.action
        life.interval = content.seconds * 1000
        shown = true
        life.restart()
    }
    function take() {
        if (!shown)
            return
        shown = false
        Shell.answerNotice(number)
    }

    // A word in passing lies over sheets too, which take all presses to themselves.
    parent: action.length > 0 ? home : over
    width: Math.min(parent.width - 32, Math.max(280, content.implicitWidth + 32))
    height: Math.max(52, label.implicitHeight + 24)
    x: (parent.width - width) / 2
    y: parent.height + 8 - risen * (height + 28)
    visible: risen > 0 && !covered
    radius: 16
    color: Theme.dark ? "#f3f1f8" : "#26232e"
    z: 100
    Behavior on risen {
        NumberAnimation {
            duration: Theme.calm
            easing.type: Easing.OutCubic
        }
    }
    Accessible.role: Accessible.AlertMessage
    Accessible.name: text

    TapHandler {
        // A tap beside the button is for nobody.
        gesturePolicy: TapHandler.ReleaseWithinBounds
    }
    Timer {
        id: life
        onTriggered: bar.shown = false
    }
    Row {
        id: content
        anchors.verticalCenter: parent.verticalCenter
        anchors.left: parent.left
        anchors.right: parent.right
        anchors.leftMargin: 18
        anchors.rightMargin: 8
        UiText {
            id: label
            anchors.verticalCenter: parent.verticalCenter
            width: parent.width - (button.visible ? button.width : 0)
            text: bar.text
            color: Theme.dark ? "#17151f" : "#ffffff"
            wrapMode: Text.Wrap
            maximumLineCount: 2
            elide: Text.ElideRight
        }
        BarButton {
            id: button
            visible: bar.action.length > 0
            anchors.verticalCenter: parent.verticalCenter
            text: bar.action
            strong: true
            tint: Theme.dark ? "#5a46dc" : "#b9afff"
            onClicked: bar.take()
        }
    }
}

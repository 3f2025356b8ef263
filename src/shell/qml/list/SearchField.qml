import QtQuick
import Dayward

// The field over the list; while a search is on, a button beside it ends it.
FocusScope {
    id: root

    property string text
    property bool searching: false
    signal began
    signal edited(text: string)
    signal ended
    // The keyboard has gone elsewhere, and nothing was typed.
    signal abandoned
    signal down

    opacity: enabled ? 1 : 0.45
    onActiveFocusChanged: if (!activeFocus && searching && text.length === 0)
        abandoned()

    Rectangle {
        anchors.left: parent.left
        anchors.right: cancel.left
        anchors.rightMargin: root.searching ? 4 : 0
        height: parent.height
        radius: 14
        color: Theme.dark ? Theme.card : "#e7e5ee"
        border.width: input.activeFocus ? 2 : 0
        border.color: Theme.accent

        Symbol {
            id: glass
            anchors.left: parent.left
            anchors.leftMargin: 12
            anchors.verticalCenter: parent.verticalCenter
            name: "search"
            size: 20
            color: Theme.secondaryText
        }
        LineField {
            id: input
            anchors.left: glass.right
            anchors.leftMargin: 8
            anchors.right: parent.right
            anchors.rightMargin: 12
            height: parent.height
            focus: true
            text: root.text
            placeholder: Theme.tr("Search")
            onActiveFocusChanged: if (activeFocus && !root.searching)
                root.began()
            onEdited: text => root.edited(text)
            Keys.onReturnPressed: root.down()
            Keys.onEnterPressed: root.down()
            Keys.onEscapePressed: root.ended()
            Keys.onDownPressed: root.down()
        }
    }
    BarButton {
        id: cancel
        anchors.right: parent.right
        anchors.verticalCenter: parent.verticalCenter
        visible: root.searching
        width: visible ? implicitWidth : 0
        text: Theme.tr("Cancel")
        onClicked: root.ended()
    }
}

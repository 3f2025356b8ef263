import QtQuick
import Dayward

// The event list: a search field, the events, and what stands there when there are none.
FocusScope {
    id: page

    required property ListItem screen
    readonly property real contentY: rows.contentY - rows.originY

    function find() {
        if (screen.canSearch)
            field.forceActiveFocus(Qt.ShortcutFocusReason)
    }

    Connections {
        target: Shell
        enabled: page.visible
        function onFindWanted() {
            page.find()
        }
    }
    SearchField {
        id: field
        anchors.left: parent.left
        anchors.right: parent.right
        anchors.margins: Theme.listInset
        height: Theme.target
        enabled: page.screen.canSearch
        searching: page.screen.searching
        text: page.screen.searchText
        onBegan: page.screen.beginSearch()
        onEdited: text => page.screen.search(text)
        onEnded: {
            page.screen.endSearch()
            rows.forceActiveFocus()
        }
        onAbandoned: {
            page.screen.endSearch()
            if (rows.activeFocus)
                rows.goTo(0, 1)
        }
        onDown: rows.forceActiveFocus(Qt.TabFocusReason)
    }
    EventList {
        id: rows
        anchors.fill: parent
        anchors.topMargin: field.height + 8
        focus: true
        rows: page.screen.searching ? page.screen.found : page.screen.events
        screen: page.screen
    }
    Column {
        anchors.centerIn: parent
        width: Math.min(parent.width - 64, 360)
        spacing: 10
        visible: page.screen.adviceTitle.length > 0
        Symbol {
            anchors.horizontalCenter: parent.horizontalCenter
            name: page.screen.searching ? "search" : "today"
            size: 56
            color: Theme.accent
            opacity: 0.7
        }
        UiText {
            width: parent.width
            text: page.screen.adviceTitle
            font.pixelSize: Theme.title
            font.weight: Font.DemiBold
            horizontalAlignment: Text.AlignHCenter
            wrapMode: Text.Wrap
        }
        UiText {
            width: parent.width
            text: page.screen.adviceText
            color: Theme.secondaryText
            horizontalAlignment: Text.AlignHCenter
            wrapMode: Text.Wrap
        }
    }
}

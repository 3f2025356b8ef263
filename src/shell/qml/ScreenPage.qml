import QtQuick
import Dayward

// One screen: its title bar and the page that draws what it is.
FocusScope {
    id: page

    required property ScreenItem screen
    property bool canGoBack: false
    property bool isPanel: false
    property int radius: 0
    property bool covered: false

    // A page that fills the whole of the screen draws its bar itself.
    readonly property bool ownsBar: screen.page === "detail"
    readonly property ListItem list: screen.page === "list" ? (screen as ListItem) : null

    // Tab's way through a table: its rows, then the bar, then what else the window has; a panel has the
    // keyboard to itself.
    function step(forward: bool) {
        const rows = body.item as TableBody
        if (rows.activeFocus && rows.focusNext(forward))
            return
        const stops = Theme.stopsIn(bar)
        const present = stops.findIndex(stop => stop.activeFocus)
        let next = stops[present >= 0 ? present + (forward ? 1 : -1) : forward ? 0 : stops.length - 1]
        if (!next && !isPanel)
            next = (stops[forward ? stops.length - 1 : 0] ?? bar).nextItemInFocusChain(forward)
        if (!next || Theme.isWithin(body, next))
            rows.focusEnd(forward)
        else
            next.forceActiveFocus(forward ? Qt.TabFocusReason : Qt.BacktabFocusReason)
    }

    implicitHeight: bar.implicitHeight + (body.item?.implicitHeight ?? 0)

    Keys.onEscapePressed: event => {
        event.accepted = page.list?.searching ?? false
        if (event.accepted)
            page.list.endSearch()
    }
    Shortcut {
        sequence: "Tab"
        enabled: page.activeFocus && page.screen.page === "table"
        onActivated: page.step(true)
    }
    Shortcut {
        sequence: "Shift+Tab"
        enabled: page.activeFocus && page.screen.page === "table"
        onActivated: page.step(false)
    }

    Component.onCompleted: screen.hold()
    Component.onDestruction: screen.release()

    Rectangle {
        anchors.fill: parent
        color: Theme.window
        visible: !page.isPanel
        radius: page.radius
    }
    Loader {
        id: body
        anchors.fill: parent
        anchors.topMargin: page.ownsBar ? 0 : bar.height
        focus: true
        sourceComponent: page.screen.page === "table" ? table : page.screen.page === "list" ? list : page.screen.page === "detail" ? detail : null
    }
    Component {
        id: table
        TableBody {
            focus: true
            rows: page.screen.rows
            compact: page.isPanel
            onTabbed: forward => page.step(forward)
        }
    }
    Component {
        id: list
        ListPage {
            focus: true
            screen: page.screen as ListItem
        }
    }
    Component {
        id: detail
        DetailPage {
            focus: true
            screen: page.screen as DetailItem
            canGoBack: page.canGoBack
        }
    }
    TitleBar {
        id: bar
        visible: !page.ownsBar
        width: parent.width
        title: (page.list?.progress ?? "") || page.screen.title
        busy: (page.list?.progress ?? "").length > 0
        buttons: page.screen.buttons
        canGoBack: page.canGoBack
        onBack: page.screen.goBack()
        onPressed: role => page.screen.press(role)

        Rectangle {
            anchors.bottom: parent.bottom
            width: parent.width
            height: 1
            color: Theme.separator
            opacity: (body.item?.contentY ?? 0) > 4 ? 1 : 0
            Behavior on opacity {
                NumberAnimation {
                    duration: Theme.quick
                }
            }
        }
    }
    DropArea {
        anchors.fill: parent
        enabled: page.screen.takesPictures && !page.covered
        keys: ["text/uri-list"]
        onDropped: drop => {
            if (drop.hasUrls)
                page.screen.dropPicture(drop.urls[0])
        }
        Rectangle {
            anchors.fill: parent
            anchors.margins: 8
            visible: parent.containsDrag
            radius: Theme.radius
            color: "transparent"
            border.width: 3
            border.color: Theme.accent
        }
    }
}

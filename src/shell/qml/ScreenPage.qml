import QtQuick
import Dayward

// One screen: its title bar and the page that draws what it is.
FocusScope {
    id: page

    required property ScreenItem screen
    property bool canGoBack: false
    property bool isPanel: false

    implicitHeight: bar.implicitHeight + (body.item?.implicitHeight ?? 0)

    Component.onCompleted: screen.hold()
    Component.onDestruction: screen.release()

    Rectangle {
        anchors.fill: parent
        color: Theme.window
        visible: !page.isPanel
    }
    Loader {
        id: body
        anchors.fill: parent
        anchors.topMargin: bar.height
        focus: true
        sourceComponent: page.screen.page === "table" ? table : null
    }
    Component {
        id: table
        TableBody {
            rows: page.screen.rows
            compact: page.isPanel
        }
    }
    TitleBar {
        id: bar
        width: parent.width
        title: page.screen.title
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
        enabled: page.screen.takesPictures
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

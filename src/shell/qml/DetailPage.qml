import QtQuick
import Dayward

// One event at full size, and sharing it.
FocusScope {
    id: page

    required property DetailItem screen
    property bool canGoBack: false
    readonly property color tint: screen.look.textColor

    Item {
        anchors.fill: parent
        visible: !page.screen.hasEvent
        Symbol {
            anchors.centerIn: parent
            name: "today"
            size: 72
            color: Theme.secondaryText
            opacity: 0.35
        }
    }
    DetailView {
        id: view
        anchors.fill: parent
        visible: page.screen.hasEvent
        look: page.screen.look
        topSpace: bar.height
        bottomSpace: share.visible ? share.height + 20 : 16
        interactive: true
        focus: true
        onNoteTapped: page.screen.tapNote()
    }
    TitleBar {
        id: bar
        width: parent.width
        visible: page.screen.hasEvent || page.canGoBack
        buttons: (page.screen as ScreenItem).buttons
        canGoBack: page.canGoBack
        tint: page.screen.hasEvent ? page.tint : Theme.accent
        onPicture: page.screen.hasEvent
        onBack: (page.screen as ScreenItem).goBack()
        onPressed: role => page.screen.press(role)
    }
    Row {
        id: share
        visible: page.screen.hasEvent && page.screen.canShare
        anchors.bottom: parent.bottom
        anchors.bottomMargin: 14
        anchors.horizontalCenter: parent.horizontalCenter
        spacing: 10
        Accessible.role: Accessible.ToolBar
        Accessible.name: page.screen.shareTitle

        ShareButton {
            symbol: "text"
            text: page.screen.shareTextTitle
            spoken: page.screen.shareTitle + ": " + text
            tint: page.tint
            onClicked: page.screen.shareText()
        }
        ShareButton {
            symbol: "picture"
            text: page.screen.shareImageTitle
            spoken: page.screen.shareTitle + ": " + text
            tint: page.tint
            onClicked: page.screen.shareImage()
        }
    }
}

import QtQuick
import QtQuick.Controls
import QtQuick.Controls.Material
import QtQuick.Dialogs
import Dayward

// The window: the list's stack, beside it the detail's where there is room, over them the modal stacks.
ApplicationWindow {
    id: window

    // A plain cover over all, which nothing takes away but the program.
    property bool covered: false
    property color coverColor: "white"
    // Sheets and questions that are open, the uppermost last.
    property var layers: []
    readonly property QtObject top: covered ? cover : layers[layers.length - 1] ?? null

    function enter(layer: QtObject) {
        layers = layers.concat([layer])
    }
    function leave(layer: QtObject) {
        layers = layers.filter(other => other !== layer)
    }

    width: 420
    height: 860
    minimumWidth: 320
    minimumHeight: 480
    title: "Dayward"
    color: Theme.window
    font.family: Theme.family

    Material.theme: Theme.dark ? Material.Dark : Material.Light
    Material.accent: Theme.accent
    Material.primary: Theme.accent
    Material.foreground: Theme.text
    Material.background: Theme.window
    LayoutMirroring.enabled: Theme.rightToLeft
    LayoutMirroring.childrenInherit: true

    onWidthChanged: Shell.setWindowWidth(width)
    Component.onCompleted: {
        // A small screen has to hold the window's frame, too.
        height = Math.min(height, Screen.height - 48, Screen.desktopAvailableHeight - 48)
        Shell.setWindowWidth(width)
    }

    Coverable {
        id: stacks
        anchors.fill: parent
        covered: window.top !== null

        ScreenStack {
            id: list
            width: Shell.hasDetailPane ? Math.max(340, Math.min(440, window.width * 0.36)) : parent.width
            height: parent.height
            stack: Shell.rootStack
            covered: stacks.covered
            focus: true
            Keys.onEscapePressed: event => event.accepted = Shell.goBack()
            Keys.onBackPressed: event => event.accepted = Shell.goBack()
        }
        Rectangle {
            visible: Shell.hasDetailPane
            anchors.left: list.right
            width: 1
            height: parent.height
            color: Theme.separator
        }
        Loader {
            anchors.left: list.right
            anchors.leftMargin: 1
            anchors.right: parent.right
            height: parent.height
            active: Shell.hasDetailPane
            sourceComponent: ScreenStack {
                stack: Shell.detailStack
                covered: stacks.covered
                Keys.onEscapePressed: event => event.accepted = Shell.goBack()
            }
        }
    }
    NoticeBar {
        id: notice
        home: stacks
        covered: window.covered
    }
    Cover {
        id: cover
        color: window.coverColor
        visible: window.covered
    }

    Component {
        id: sheet
        ModalSheet {
            id: shownSheet
            top: window.top
            onAboutToShow: window.enter(shownSheet)
            onAboutToHide: window.leave(shownSheet)
        }
    }
    Component {
        id: alert
        AlertDialog {
            id: shownAlert
            top: window.top
            onAboutToShow: window.enter(shownAlert)
            onAboutToHide: window.leave(shownAlert)
        }
    }
    FileDialog {
        id: pictureDialog
        title: Theme.tr("Choose a picture")
        nameFilters: ["PNG, JPEG (*.png *.jpg *.jpeg *.PNG *.JPG *.JPEG)"]
        onAccepted: Shell.choosePictureFile(selectedFile)
        onRejected: Shell.choosePictureFile("")
    }
    FileDialog {
        id: saveDialog
        fileMode: FileDialog.SaveFile
        onAccepted: Shell.chooseSavePath(selectedFile)
        onRejected: Shell.chooseSavePath("")
    }
    Connections {
        target: Shell
        property var sheets: new Map()
        function onPresented(stack) {
            const shown = sheet.createObject(window, {
                "stack": stack
            }) as ModalSheet
            sheets.set(stack, shown)
            shown.open()
        }
        function onDismissed(stack) {
            sheets.get(stack)?.close()
            sheets.delete(stack)
        }
        function onAlertWanted(number, content) {
            const shown = alert.createObject(window, {
                "number": number,
                "content": content
            }) as AlertDialog
            shown.open()
        }
        function onNoticeWanted(number, content) {
            notice.show(number, content)
        }
        function onPictureWanted() {
            pictureDialog.open()
        }
        function onSavePathWanted(suggestedName) {
            saveDialog.selectedFile = saveDialog.currentFolder + "/" + suggestedName
            saveDialog.open()
        }
    }

    Shortcut {
        sequences: [StandardKey.New]
        onActivated: Shell.press("add")
    }
    Shortcut {
        sequences: [StandardKey.Undo]
        enabled: notice.shown
        onActivated: notice.take()
    }
    Shortcut {
        sequences: [StandardKey.Preferences, "Ctrl+,"]
        onActivated: Shell.press("info")
    }
    Shortcut {
        sequences: [StandardKey.Find]
        onActivated: Shell.findWanted()
    }
    Shortcut {
        sequences: [StandardKey.Quit]
        onActivated: window.close()
    }
}

import QtQuick
import QtQuick.Controls
import Dayward

// A question with its buttons; Escape is the one that cancels.
Popup {
    id: dialog

    required property int number
    required property var content
    // What lies over all else in the window.
    property QtObject top: null
    property int answer: -1
    readonly property var buttons: content.buttons ?? []

    function choose(button: int) {
        answer = button
        close()
    }

    parent: Overlay.overlay
    anchors.centerIn: parent
    width: Math.min(360, parent.width - 48)
    padding: 0
    modal: true
    focus: true
    closePolicy: Popup.NoAutoClose
    onClosed: {
        Shell.answerAlert(number, answer)
        destroy()
    }
    Overlay.modal: Rectangle {
        color: Theme.dim
    }
    Connections {
        target: Shell
        function onAlertWithdrawn(number: int) {
            if (number === dialog.number)
                dialog.close()
        }
    }
    background: Rectangle {
        color: Theme.raised
        radius: 20
    }
    contentItem: Coverable {
        implicitHeight: column.implicitHeight
        covered: dialog.top !== dialog

        FocusScope {
            anchors.fill: parent
            focus: true
            Keys.onEscapePressed: dialog.choose(dialog.buttons.findIndex(button => button.role === "cancel"))
            Accessible.role: Accessible.AlertMessage
            Accessible.name: (dialog.content.title ?? "") + ". " + (dialog.content.message ?? "")

            Column {
                id: column
                width: parent.width
                padding: 20
                spacing: 8
                UiText {
                    width: parent.width - 40
                    text: dialog.content.title ?? ""
                    visible: text.length > 0
                    font.pixelSize: Theme.headline
                    font.weight: Font.DemiBold
                    wrapMode: Text.Wrap
                }
                UiText {
                    width: parent.width - 40
                    visible: text.length > 0
                    text: dialog.content.message ?? ""
                    color: Theme.secondaryText
                    wrapMode: Text.Wrap
                }
                Item {
                    width: 1
                    height: 4
                }
                Repeater {
                    model: dialog.buttons
                    delegate: PillButton {
                        required property var modelData
                        required property int index
                        width: column.width - 40
                        text: modelData.title
                        role: modelData.role
                        focus: index === 0
                        onClicked: dialog.choose(index)
                    }
                }
            }
        }
    }
    enter: Transition {
        NumberAnimation {
            property: "opacity"
            from: 0
            to: 1
            duration: Theme.quick
        }
        NumberAnimation {
            property: "scale"
            from: 0.94
            to: 1
            duration: Theme.calm
            easing.type: Easing.OutCubic
        }
    }
    exit: Transition {
        NumberAnimation {
            property: "opacity"
            to: 0
            duration: Theme.quick
        }
    }
}

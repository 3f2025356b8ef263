import QtQuick
import Dayward

// What stands above the events of one section, such as "Tomorrow".
Item {
    id: root

    required property string header
    readonly property bool isHeader: true

    ListView.onReused: {
        // As its removal left it.
        x = 0
        opacity = 1
        scale = 1
    }

    width: ListView.view?.width ?? 0
    height: caption.implicitHeight + 20

    UiText {
        id: caption
        x: Theme.listInset + 12
        anchors.bottom: parent.bottom
        anchors.bottomMargin: 6
        width: parent.width - 2 * x
        text: Theme.heading(root.header)
        font.pixelSize: Theme.small
        font.weight: Font.DemiBold
        color: Theme.secondaryText
        elide: Text.ElideRight
        Accessible.role: Accessible.Heading
        Accessible.name: text
    }
}

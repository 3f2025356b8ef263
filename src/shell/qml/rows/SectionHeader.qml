import QtQuick
import Dayward

// What stands above a section's rows: its header, or the space between two sections.
Item {
    id: header
    required property tableRow row
    required property int index

    readonly property int inset: Math.max(Theme.margin, (width - Theme.formWidth) / 2)

    width: ListView.view?.width ?? 0
    height: row.label.length > 0 ? caption.implicitHeight + (index === 0 ? 16 : 26) : (index === 0 ? 8 : 20)
    transform: Slide {
        row: header
    }

    UiText {
        id: caption
        anchors.bottom: parent.bottom
        anchors.bottomMargin: 6
        x: header.inset + 14
        width: header.width - 2 * x
        text: header.row.label
        font.pixelSize: Theme.small
        font.weight: Font.DemiBold
        color: Theme.secondaryText
        wrapMode: Text.Wrap
        Accessible.ignored: text.length === 0
        Accessible.role: Accessible.Heading
        Accessible.name: text
    }
}

import QtQuick
import Dayward

// What stands under a section's rows.
Item {
    id: footer
    required property tableRow row

    readonly property int inset: Math.max(Theme.margin, (width - Theme.formWidth) / 2)

    width: ListView.view?.width ?? 0
    height: row.label.length > 0 ? caption.implicitHeight + 8 : 0
    transform: Slide {
        row: footer
    }

    UiText {
        id: caption
        y: 6
        x: footer.inset + 14
        width: footer.width - 2 * x
        text: footer.row.label
        font.pixelSize: Theme.small
        color: Theme.secondaryText
        wrapMode: Text.Wrap
    }
}

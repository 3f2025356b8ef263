import QtQuick
import Dayward

// A text alone.
RowFrame {
    id: frame
    showsHead: false
    UiText {
        topPadding: 12
        width: parent.width
        text: frame.row.detail
        font.pixelSize: Theme.small
        font.weight: frame.row.emphasized ? Font.DemiBold : Font.Normal
        wrapMode: Text.Wrap
    }
}

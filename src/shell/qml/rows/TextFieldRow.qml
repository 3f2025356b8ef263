import QtQuick
import Dayward

// One line to type in.
RowFrame {
    id: frame
    showsHead: false
    takesFocus: false
    body.topPadding: 6
    body.bottomPadding: 6
    LineField {
        width: parent.width
        focus: true
        text: frame.row.content.text ?? ""
        placeholder: frame.row.content.placeholder || frame.row.label
        enabled: frame.row.enabled
        spoken: frame.row.label
        onEdited: text => frame.rows.editText(frame.index, text)
    }
}

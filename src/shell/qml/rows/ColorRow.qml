import QtQuick
import Dayward

// A label with a colour.
RowFrame {
    id: frame
    trailing: Component {
        Rectangle {
            width: 40
            height: 40
            radius: 20
            color: frame.row.content.color ?? "transparent"
            border.width: 1
            border.color: Theme.separator
        }
    }
}

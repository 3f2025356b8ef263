import QtQuick
import Dayward

// A choice with its check mark.
RowFrame {
    id: frame
    trailing: Component {
        Symbol {
            name: "check"
            size: 22
            color: Theme.accent
            opacity: frame.row.checked ? 1 : 0
            scale: frame.row.checked ? 1 : 0.6
            Behavior on opacity {
                NumberAnimation {
                    duration: Theme.quick
                }
            }
            Behavior on scale {
                NumberAnimation {
                    duration: Theme.quick
                }
            }
        }
    }
}

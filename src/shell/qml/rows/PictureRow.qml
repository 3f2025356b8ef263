import QtQuick
import Dayward

// A label with a picture.
RowFrame {
    id: frame
    trailing: Component {
        Picture {
            width: 56
            height: 40
            radius: 8
            key: frame.row.content.picture ?? ""
        }
    }
}

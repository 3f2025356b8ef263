import QtQuick
import Dayward
import QtQuick.Controls.impl

// One of the interface's own line drawings, in a colour.
ColorImage {
    property string name
    property int size: 24

    source: name.length > 0 ? "icons/" + name + ".svg" : ""
    sourceSize: Qt.size(size, size) // qmllint disable type
    width: size
    height: size
    color: Theme.text
}

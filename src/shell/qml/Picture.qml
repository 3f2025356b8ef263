import QtQuick
import Dayward

// A picture by the key that its row gives, cut to its place (or kept whole in it), with round corners.
Image {
    id: root

    property alias key: address.key
    property alias whole: address.whole
    property int radius: 0
    property bool fades: true
    readonly property bool loaded: key.length === 0 || status === Image.Ready || status === Image.Error

    readonly property real ratio: Screen.devicePixelRatio
    readonly property bool hasSize: width >= 1 && height >= 1

    PictureSource {
        id: address
        radius: Math.round(root.radius * root.ratio)
        hasSize: root.hasSize
    }

    asynchronous: true
    sourceSize: Qt.size(Math.ceil(width), Math.ceil(height)) // qmllint disable type
    source: address.url
    fillMode: Image.Stretch
    opacity: status === Image.Ready ? 1 : 0
    Behavior on opacity {
        enabled: root.fades
        NumberAnimation {
            duration: Theme.quick
        }
    }
}

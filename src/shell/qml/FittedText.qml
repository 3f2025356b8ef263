import QtQuick
import Dayward

// A text that takes the first of its sizes at which it fits on one line; at the last it wraps.
Item {
    id: root

    property string text
    property string fontName
    property var sizes: []
    property color color: "white"

    implicitHeight: shown.implicitHeight

    function fittingSize(): int {
        for (const size of sizes) {
            metrics.font = Appearance.font(fontName, size * Theme.scale, text)
            if (metrics.boundingRect(text).width <= width)
                return size * Theme.scale
        }
        return sizes.length > 0 ? sizes[sizes.length - 1] * Theme.scale : Theme.title
    }

    FontMetrics {
        id: metrics
    }
    UiText {
        id: shown
        width: parent.width
        text: root.text
        color: root.color
        font: Appearance.font(root.fontName, root.fitted, root.text)
        horizontalAlignment: Text.AlignHCenter
        wrapMode: Text.Wrap
    }

    property int fitted: 20
    function refit() {
        fitted = fittingSize()
    }
    onTextChanged: Qt.callLater(refit) // qmllint disable
    onWidthChanged: Qt.callLater(refit) // qmllint disable
    onFontNameChanged: Qt.callLater(refit) // qmllint disable
    onSizesChanged: Qt.callLater(refit) // qmllint disable
    Component.onCompleted: refit()
}

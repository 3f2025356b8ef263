import QtQuick
import Dayward

// A text that takes the first of its sizes at which it fits on one line; at the last it wraps, and where a word
// alone is too wide for that, it is made smaller.
Item {
    id: root

    property string text
    property string fontName
    property var sizes: []
    property color color: "white"

    implicitHeight: shown.implicitHeight

    function fits(line: string, size: int): bool {
        metrics.font = Appearance.font(fontName, size, text)
        return metrics.advanceWidth(line) <= width
    }
    function fittingSize(): int {
        for (const size of sizes) {
            if (fits(text, size * Theme.scale))
                return size * Theme.scale
        }
        let smaller = sizes.length > 0 ? sizes[sizes.length - 1] * Theme.scale : Theme.title
        while (smaller > Theme.caption && !text.split(" ").every(word => fits(word, smaller)))
            smaller -= 2
        return smaller
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
    Connections {
        target: Theme
        function onScaleChanged() {
            Qt.callLater(root.refit) // qmllint disable
        }
    }
    Component.onCompleted: refit()
}

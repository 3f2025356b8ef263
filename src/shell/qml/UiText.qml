import QtQuick
import Dayward

// A text of the interface.
Text {
    font.family: Theme.family
    font.pixelSize: Theme.body
    color: Theme.text
    textFormat: Text.PlainText
}

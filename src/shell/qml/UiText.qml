import QtQuick
import Dayward

// A text of the interface.
Text {
    font.family: Theme.family
    font.pixelSize: Theme.body
    color: Theme.text
    textFormat: Text.PlainText
    // Said, it is mirrored with the layout; unsaid, it would follow each text's own direction.
    horizontalAlignment: Text.AlignLeft
}

import QtQuick
import Dayward

// One line to type in, without a frame of its own.
TextInput {
    id: input

    property string placeholder
    property string spoken: placeholder
    property int fontSize: Theme.body
    signal edited(text: string)

    height: Math.max(Theme.target, contentHeight + 20)
    horizontalAlignment: TextInput.AlignLeft
    verticalAlignment: TextInput.AlignVCenter
    font.family: Theme.family
    font.pixelSize: fontSize
    color: Theme.text
    selectionColor: Theme.accent
    selectedTextColor: Theme.accentText
    selectByMouse: true
    activeFocusOnTab: true
    clip: true
    Accessible.role: Accessible.EditableText
    Accessible.name: spoken
    onTextEdited: edited(text)
    // Where nobody types, the beginning is in sight.
    autoScroll: activeFocus

    UiText {
        anchors.fill: parent
        visible: input.length === 0 && input.preeditText.length === 0
        verticalAlignment: Text.AlignVCenter
        text: input.placeholder
        font.pixelSize: input.fontSize
        color: Theme.secondaryText
        elide: Text.ElideRight
    }
}

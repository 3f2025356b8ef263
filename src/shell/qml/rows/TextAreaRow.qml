import QtQuick
import Dayward

// Many lines to type in; the row grows with them.
RowFrame {
    id: frame
    showsHead: false
    takesFocus: false
    Item {
        width: parent.width
        height: Math.max(160, area.implicitHeight)
        TextEdit {
            id: area
            anchors.fill: parent
            topPadding: 14
            text: frame.row.content.text ?? ""
            focus: true
            activeFocusOnTab: true
            horizontalAlignment: TextEdit.AlignLeft
            wrapMode: TextEdit.Wrap
            font.family: Theme.family
            font.pixelSize: Theme.body
            color: Theme.text
            selectionColor: Theme.accent
            selectedTextColor: Theme.accentText
            selectByMouse: true
            Accessible.role: Accessible.EditableText
            Accessible.name: frame.row.label
            // What the screen knows; the row itself is not told of what is typed in it.
            property string told: frame.row.content.text ?? ""
            onTextChanged: if (text !== told) {
                told = text
                frame.rows.editText(frame.index, text)
            }
            // A tab would be typed, and the keyboard never come out.
            Keys.onTabPressed: (frame.ListView.view as TableBody).tabbed(true)
            Keys.onBacktabPressed: (frame.ListView.view as TableBody).tabbed(false)
            Keys.onEscapePressed: event => event.accepted = false
        }
        UiText {
            visible: area.text.length === 0 && !area.inputMethodComposing
            width: parent.width
            topPadding: 14
            text: frame.row.content.placeholder ?? ""
            color: Theme.secondaryText
            wrapMode: Text.Wrap
        }
    }
}

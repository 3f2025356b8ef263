import QtQuick
import Dayward

// A row of a form: its place on the section's card, its head, what opens below it, and the hand and the
// keyboard on it. A row of a value or a switch is no more than this.
FocusScope {
    id: frame

    required property tableRow row
    required property bool first
    required property bool last
    required property int index

    property TableModel rows: ListView.view?.rows ?? null
    property Component trailing: null
    property bool showsHead: true
    // Where the keyboard goes when it comes to the row.
    property bool takesFocus: row.tappable || row.hasSwitch
    // Whether there is something below the head.
    property bool hasBody: body.children.length > 0
    default property alias content: body.data
    readonly property alias body: body
    readonly property bool isOpen: !row.canOpen || row.open
    readonly property int inset: Math.max(Theme.margin, (width - Theme.formWidth) / 2)
    readonly property alias head: head

    function activate() {
        if (!row.enabled)
            return
        if (row.hasSwitch && !row.canOpen && !row.tappable)
            rows.toggle(index, !row.on)
        else
            rows.select(index)
    }

    ListView.onAdd: appearance.start()
    Component.onCompleted: if (row.startsFocused && ListView.view?.takeStart())
        focus = true

    width: ListView.view?.width ?? 0
    implicitHeight: column.implicitHeight
    height: implicitHeight
    clip: height < implicitHeight
    transform: Slide {
        row: frame
    }
    activeFocusOnTab: takesFocus && row.enabled
    onActiveFocusChanged: if (activeFocus && ListView.view && Appearance.keyboardInUse)
        (ListView.view as TableBody).reveal(frame)

    Accessible.role: row.hasSwitch ? Accessible.CheckBox : row.kind === "check" ? Accessible.RadioButton : row.tappable ? Accessible.Button : Accessible.StaticText
    Accessible.name: row.spoken
    Accessible.checkable: row.hasSwitch || row.kind === "check"
    Accessible.checked: row.on || row.checked
    Accessible.focusable: takesFocus
    Accessible.onPressAction: frame.activate()
    Accessible.onToggleAction: frame.activate()

    Keys.onPressed: event => {
        const enters = event.key === Qt.Key_Return || event.key === Qt.Key_Enter
        if (enters && !frame.takesFocus)
            ListView.view.focusNext(true)
        else if (enters || event.key === Qt.Key_Space)
            frame.activate()
        else if (event.key === Qt.Key_Down || event.key === Qt.Key_Up)
            ListView.view.focusNext(event.key === Qt.Key_Down)
        else if (event.key === Qt.Key_Delete && frame.row.canDelete)
            frame.rows.removeRow(frame.index)
        else
            return
        event.accepted = true
    }

    NumberAnimation {
        id: appearance
        target: frame
        property: "opacity"
        from: 0
        to: 1
        duration: Theme.calm
    }
    CardSlice {
        id: card
        x: frame.inset
        width: frame.width - 2 * frame.inset
        height: parent.height
        first: frame.first
        last: frame.last
        highlighted: frame.row.tappable && (hand.pressed || hover.hovered)
        FocusRing {
            target: frame
            anchors.margins: 2
        }
    }
    HoverHandler {
        id: hover
        enabled: frame.row.tappable
    }
    TapHandler {
        id: hand
        enabled: frame.row.tappable
        gesturePolicy: TapHandler.ReleaseWithinBounds
        onTapped: point => {
            if (point.position.y < head.y + head.height + column.topPadding || !frame.row.canOpen)
                frame.activate()
        }
    }
    Column {
        id: column
        // Not the card: its parts lie over one another.
        opacity: frame.row.enabled ? 1 : 0.45
        x: frame.inset
        width: frame.width - 2 * frame.inset
        RowHead {
            id: head
            width: parent.width
            visible: frame.showsHead
            row: frame.row
            trailing: frame.trailing
            onToggled: on => frame.rows.toggle(frame.index, on)
            onRemoved: frame.rows.removeRow(frame.index)
        }
        Column {
            id: body
            x: 14
            width: parent.width - 28
            visible: frame.isOpen && frame.hasBody
            bottomPadding: visible ? 12 : 0
        }
    }
}

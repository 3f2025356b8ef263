import QtQuick
import QtQuick.Window

// The widget on the desktop: a card of rows without a frame. Drag it to its place, drag its lower edge for more
// or fewer events, tap an event to open it.
Window {
    id: window

    required property var board

    readonly property bool dark: board.dark
    readonly property color card: dark ? "#1e1c25" : "#ffffff"
    readonly property color text: dark ? "#f3f1f8" : "#17151f"
    readonly property color secondaryText: dark ? "#aba6b8" : "#625f6d"
    readonly property color separator: dark ? "#312e3b" : "#e5e3ec"
    readonly property color accent: dark ? "#a99cff" : "#5a46dc"
    readonly property color accentSoft: dark ? "#332d55" : "#ebe8ff"
    readonly property int rowHeight: 64
    readonly property int margin: 8

    width: 340
    height: board.count * rowHeight + 2 * margin
    color: "transparent"
    title: "Dayward"
    flags: Qt.Tool | Qt.FramelessWindowHint | Qt.WindowStaysOnBottomHint

    component Line: Text {
        font.family: "Roboto"
        textFormat: Text.PlainText
        elide: Text.ElideRight
        maximumLineCount: 1
    }

    Rectangle {
        id: face
        anchors.fill: parent
        radius: 16
        color: window.card
        border.width: 1
        border.color: window.separator
        LayoutMirroring.enabled: window.board.rightToLeft
        LayoutMirroring.childrenInherit: true
        focus: true
        Keys.onPressed: event => {
            if (event.text === "+")
                window.board.count += 1
            else if (event.text === "-")
                window.board.count -= 1
            else if (event.matches(StandardKey.Quit) || event.matches(StandardKey.Close))
                window.close()
        }

        DragHandler {
            target: null
            onActiveChanged: if (active)
                window.startSystemMove()
        }
        HoverHandler {
            id: hover
        }
        Column {
            x: window.margin
            y: window.margin
            width: parent.width - 2 * window.margin
            Repeater {
                model: window.board.rows
                Item {
                    id: row
                    required property var modelData
                    required property int index
                    /// Where there is no room for it beside the date, the countdown goes below.
                    readonly property bool stacked: beside.advanceWidth + date.implicitWidth + 2 * texts.gap > width - texts.x

                    width: parent.width
                    height: window.rowHeight
                    activeFocusOnTab: true
                    Accessible.role: Accessible.Button
                    Accessible.name: [modelData.title, modelData.date, modelData.countdown].filter(part => part.length > 0).join(", ")
                    Accessible.onPressAction: window.board.open(modelData.key)
                    Keys.onReturnPressed: window.board.open(modelData.key)

                    Rectangle {
                        anchors.fill: parent
                        radius: 12
                        visible: hand.pressed || over.hovered || row.activeFocus
                        color: window.accentSoft
                        opacity: hand.pressed ? 1 : 0.6
                    }
                    Rectangle {
                        visible: row.index > 0
                        anchors.left: texts.left
                        anchors.right: parent.right
                        anchors.rightMargin: 8
                        height: 1
                        color: window.separator
                    }
                    Image {
                        id: icon
                        anchors.left: parent.left
                        anchors.leftMargin: 8
                        anchors.verticalCenter: parent.verticalCenter
                        width: 40
                        height: 40
                        sourceSize: Qt.size(96, 96)
                        fillMode: Image.PreserveAspectFit
                        smooth: true
                        mipmap: true
                        source: row.modelData.icon
                    }
                    TextMetrics {
                        id: beside
                        font: countdown.font
                        text: row.modelData.countdown
                    }
                    Column {
                        id: texts
                        readonly property int gap: 10
                        anchors.left: icon.right
                        anchors.leftMargin: 12
                        anchors.right: row.stacked ? parent.right : countdown.left
                        anchors.rightMargin: gap
                        anchors.verticalCenter: parent.verticalCenter
                        spacing: row.stacked ? 0 : 2
                        Line {
                            width: parent.width
                            text: row.modelData.title
                            font.pixelSize: 16
                            font.weight: Font.Medium
                            color: window.text
                            wrapMode: Text.Wrap
                            maximumLineCount: row.stacked ? 1 : 2
                            lineHeight: lineCount > 1 ? 0.85 : 1
                            horizontalAlignment: Text.AlignLeft
                        }
                        Line {
                            id: date
                            width: parent.width
                            text: row.modelData.date
                            font.pixelSize: 13
                            color: window.secondaryText
                            horizontalAlignment: Text.AlignLeft
                        }
                        Line {
                            visible: row.stacked
                            width: parent.width
                            text: row.modelData.countdown
                            font.pixelSize: 13
                            font.weight: Font.DemiBold
                            fontSizeMode: Text.HorizontalFit
                            minimumPixelSize: 9
                            color: countdown.color
                            horizontalAlignment: Text.AlignLeft
                        }
                    }
                    Line {
                        id: countdown
                        visible: !row.stacked
                        anchors.right: parent.right
                        anchors.rightMargin: texts.gap
                        anchors.verticalCenter: parent.verticalCenter
                        text: row.modelData.countdown
                        font.pixelSize: 15
                        font.weight: Font.DemiBold
                        color: row.modelData.now || row.modelData.today ? window.accent : window.text
                        horizontalAlignment: Text.AlignRight
                    }
                    HoverHandler {
                        id: over
                    }
                    TapHandler {
                        id: hand
                        onTapped: window.board.open(row.modelData.key)
                    }
                }
            }
        }
        Line {
            anchors.centerIn: parent
            visible: window.board.rows.length === 0
            text: window.board.noEvents
            font.pixelSize: 15
            color: window.secondaryText
            TapHandler {
                onTapped: window.board.open("")
            }
        }
        // The lower edge: each row's height that it is dragged is an event more or fewer.
        Item {
            id: edge
            anchors.left: parent.left
            anchors.right: parent.right
            anchors.bottom: parent.bottom
            height: 10
            Rectangle {
                anchors.centerIn: parent
                visible: hover.hovered
                width: 36
                height: 4
                radius: 2
                color: window.secondaryText
                opacity: 0.6
            }
            HoverHandler {
                cursorShape: Qt.SizeVerCursor
            }
            MouseArea {
                anchors.fill: parent
                cursorShape: Qt.SizeVerCursor
                preventStealing: true
                onPositionChanged: mouse => {
                    const y = mapToItem(face, mouse.x, mouse.y).y
                    window.board.count = Math.round((y - 2 * window.margin) / window.rowHeight)
                }
            }
        }
        Rectangle {
            visible: hover.hovered
            anchors.right: parent.right
            anchors.top: parent.top
            anchors.margins: 4
            width: 22
            height: 22
            radius: 11
            color: window.accentSoft
            Accessible.role: Accessible.Button
            Accessible.name: window.board.closeName
            Line {
                anchors.centerIn: parent
                text: "×"
                font.pixelSize: 16
                color: window.text
            }
            TapHandler {
                // A finger is broader than the sign.
                margin: 11
                onTapped: window.close()
            }
        }
    }
}

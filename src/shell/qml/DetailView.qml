import QtQuick
import Dayward

// An event at full size: its picture, its icon, name, date, countdown, the distance in each unit, and its
// note. The same item is drawn out of sight for a picture to share.
FocusScope {
    id: view

    property detailLook look
    property int topSpace: 16
    property int bottomSpace: 16
    property bool interactive: false
    signal noteTapped

    readonly property bool ready: background.loaded && icon.loaded
    // What stands between the picture and the texts is full in the middle and weaker above and below.
    readonly property color edge: Qt.rgba(look.scrim.r, look.scrim.g, look.scrim.b, look.scrim.a * 0.8)
    readonly property bool roomy: height > 520
    readonly property int columnWidth: Math.min(width - 40, 620)

    // Where all of it does not fit; false for keys that move nothing.
    function scrollFor(key: int): bool {
        const page = scroll.height * 0.85
        const ways = {
            [Qt.Key_Down]: 60,
            [Qt.Key_Up]: -60,
            [Qt.Key_PageDown]: page,
            [Qt.Key_Space]: page,
            [Qt.Key_PageUp]: -page,
            [Qt.Key_End]: scroll.contentHeight,
            [Qt.Key_Home]: -scroll.contentHeight
        }
        const place = Math.max(0, Math.min(scroll.contentHeight - scroll.height, scroll.contentY + (ways[key] ?? 0)))
        if (place === scroll.contentY)
            return false
        scroll.contentY = place
        return true
    }

    Rectangle {
        anchors.fill: parent
        // White shows through a transparent picture, as the scrim reckons.
        color: background.status === Image.Ready && background.opacity === 1 ? "#ffffff" : Theme.card
    }
    Picture {
        id: background
        anchors.fill: parent
        fades: view.interactive
        key: view.look.background
    }
    Rectangle {
        anchors.fill: parent
        gradient: Gradient {
            GradientStop {
                position: 0
                color: view.edge
            }
            GradientStop {
                position: 0.2
                color: view.look.scrim
            }
            GradientStop {
                position: 0.8
                color: view.look.scrim
            }
            GradientStop {
                position: 1
                color: view.edge
            }
        }
    }
    Flickable {
        id: scroll
        anchors.fill: parent
        anchors.bottomMargin: view.bottomSpace
        contentHeight: Math.max(height, column.implicitHeight + view.topSpace)
        interactive: view.interactive && contentHeight > height
        clip: interactive
        boundsBehavior: Flickable.StopAtBounds
        focus: true
        activeFocusOnTab: view.interactive
        Accessible.role: Accessible.StaticText
        Accessible.name: view.look.spoken
        Accessible.focusable: view.interactive
        Keys.onPressed: event => event.accepted = view.scrollFor(event.key)

        Column {
            id: column
            x: (scroll.width - width) / 2
            y: view.topSpace + Math.max(0, (scroll.contentHeight - view.topSpace - implicitHeight) * 0.42)
            width: view.columnWidth
            spacing: view.roomy ? 14 : 8

            Picture {
                id: icon
                anchors.horizontalCenter: parent.horizontalCenter
                width: Math.min(132, Math.max(64, view.height * 0.15))
                height: width
                whole: true
                fades: view.interactive
                key: view.look.icon
            }
            FittedText {
                width: parent.width
                text: view.look.name
                fontName: view.look.fontName
                sizes: view.look.nameSizes
                color: view.look.textColor
            }
            UiText {
                width: parent.width
                text: Theme.unbroken(view.look.date)
                font: Appearance.font(view.look.fontName, Theme.headline, view.look.date)
                color: view.look.textColor
                horizontalAlignment: Text.AlignHCenter
                wrapMode: Text.Wrap
            }
            Item {
                width: 1
                height: view.roomy ? 10 : 2
            }
            FittedText {
                width: parent.width
                text: Theme.unbroken(view.look.countdown)
                fontName: view.look.fontName
                sizes: view.look.countdownSizes
                color: view.look.textColor
            }
            Item {
                width: 1
                height: view.roomy ? 6 : 0
            }
            Column {
                id: units
                anchors.horizontalCenter: parent.horizontalCenter
                visible: !view.look.noteOpened || view.height > 900
                spacing: 3
                readonly property real labelWidth: Math.min(parent.width * 0.5, 220)
                Repeater {
                    model: view.look.unitLabels.length
                    delegate: Row {
                        id: unit
                        required property int index
                        spacing: 14
                        UiText {
                            width: units.labelWidth
                            text: view.look.unitLabels[unit.index] ?? ""
                            horizontalAlignment: Text.AlignRight
                            color: view.look.textColor
                        }
                        UiText {
                            width: units.labelWidth
                            text: view.look.unitValues[unit.index] ?? ""
                            font.weight: Font.DemiBold
                            color: view.look.textColor
                        }
                    }
                }
            }
            Item {
                id: note
                visible: view.look.note.length > 0
                width: parent.width
                height: noteText.height + 24
                activeFocusOnTab: view.interactive && visible
                Keys.onReturnPressed: view.noteTapped()
                Keys.onEnterPressed: view.noteTapped()
                Keys.onSpacePressed: view.noteTapped()
                Accessible.role: Accessible.Button
                Accessible.name: view.look.note
                Accessible.focusable: view.interactive
                Accessible.onPressAction: view.noteTapped()
                Rectangle {
                    anchors.fill: parent
                    radius: Theme.radius
                    color: view.look.textColor.hslLightness > 0.5 ? "#40000000" : "#66ffffff"
                    FocusRing {
                        target: note
                    }
                }
                UiText {
                    id: noteText
                    x: 16
                    y: 12
                    width: parent.width - 32
                    text: view.look.note
                    color: view.look.textColor
                    wrapMode: Text.Wrap
                    maximumLineCount: view.look.noteOpened ? 1000 : 2
                    elide: Text.ElideRight
                }
                Behavior on height {
                    enabled: view.interactive
                    NumberAnimation {
                        duration: Theme.calm
                        easing.type: Easing.OutCubic
                    }
                }
                clip: true
                TapHandler {
                    enabled: view.interactive
                    onTapped: view.noteTapped()
                }
            }
        }
    }
    FocusRing {
        target: scroll
        gap: -4
        radius: 8
    }
}

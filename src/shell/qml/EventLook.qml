import QtQuick
import Dayward

// An event as a row shows it: its picture, over it a gradient that keeps the texts readable, its icon,
// name, date and countdown.
EventLookItem {
    id: look

    property int radius: Theme.radius
    property int topInset: 0
    property bool missed: false
    property int trailingSpace: 0

    // About; measuring it would lay it out twice.
    readonly property real countdownWidth: countdown.length * Theme.body * 0.54
    // Large texts side by side would be cut in a narrow row, and a long countdown would cut the name or the date. The
    // one that is out of sight has no text: it would be laid out all the same.
    readonly property bool stacked: (Theme.scale > 1.2 && width < 340 * Theme.scale) || countdownWidth > Math.min(width * 0.42, width - 50 - iconPicture.width - date.length * Theme.caption * 0.5)
    // While the row's buttons leave too little for both, the countdown makes room for the name.
    readonly property bool cramped: trailingSpace > 0 && width - trailingSpace - countdownWidth < 240 * Theme.scale

    readonly property bool beside: !stacked && !cramped

    scrim: textColor.hslLightness > 0.5 ? "#8c000000" : "#a6ffffff"
    titleSize: Theme.headline
    implicitHeight: Theme.eventHeight

    Rectangle {
        anchors.fill: picture
        radius: look.radius
        color: Theme.field
    }
    Picture {
        id: picture
        objectName: "picture"
        anchors.fill: parent
        anchors.topMargin: look.topInset
        key: look.background
        radius: look.radius
    }
    Rectangle {
        anchors.fill: picture
        radius: look.radius
        // Full behind the lines of text, weaker towards the edges.
        gradient: Gradient {
            GradientStop {
                position: 0
                color: look.stacked ? look.scrim : look.faintScrim
            }
            GradientStop {
                position: 0.24
                color: look.scrim
            }
            GradientStop {
                position: 0.8
                color: look.scrim
            }
            GradientStop {
                position: 1
                color: look.stacked ? look.scrim : look.faintScrim
            }
        }
    }
    Rectangle {
        visible: look.missed
        anchors.right: parent.right
        anchors.top: picture.top
        anchors.margins: 8
        width: 10
        height: 10
        radius: 5
        color: Theme.missed
        border.width: 1
        border.color: "#ffffff"
    }
    Rectangle {
        anchors.fill: picture
        radius: look.radius
        color: "transparent"
        border.width: 1
        border.color: Theme.dark ? "#1fffffff" : "#14000000"
    }
    Item {
        anchors.fill: picture
        anchors.leftMargin: 12
        anchors.rightMargin: 14 + look.trailingSpace

        Picture {
            id: iconPicture
            visible: look.icon.length > 0
            anchors.left: parent.left
            anchors.verticalCenter: parent.verticalCenter
            width: visible ? Math.round(46 * Theme.scale) : 0
            height: Math.round(46 * Theme.scale)
            whole: true
            key: look.icon
        }
        Column {
            anchors.left: iconPicture.right
            anchors.leftMargin: iconPicture.visible ? 12 : 2
            anchors.right: look.beside ? countdownText.left : parent.right
            anchors.rightMargin: look.beside ? 12 : 0
            anchors.verticalCenter: parent.verticalCenter
            spacing: 2
            UiText {
                width: parent.width
                visible: text.length > 0
                text: look.title
                font: look.titleFont
                color: look.textColor
                elide: Text.ElideRight
                wrapMode: Text.Wrap
                maximumLineCount: look.stacked && !look.cramped && Theme.scale <= 1.2 ? 1 : 2
                // Two lines have their place in the row, however high the font is.
                lineHeightMode: lineCount > 1 ? Text.FixedHeight : Text.ProportionalHeight
                lineHeight: lineCount > 1 ? Theme.headline * 1.2 : 1
            }
            UiText {
                width: parent.width
                text: look.date
                font.pixelSize: Theme.small
                fontSizeMode: Text.HorizontalFit
                minimumPixelSize: Theme.caption - 1
                color: look.textColor
                elide: Text.ElideRight
            }
            UiText {
                width: parent.width
                visible: text.length > 0
                text: look.stacked && !look.cramped ? look.countdown : ""
                font.weight: Font.DemiBold
                fontSizeMode: Text.HorizontalFit
                minimumPixelSize: Theme.caption
                color: look.textColor
                elide: Text.ElideRight
            }
        }
        UiText {
            id: countdownText
            visible: look.beside
            anchors.right: parent.right
            anchors.verticalCenter: parent.verticalCenter
            width: Math.min(implicitWidth, parent.width * 0.46)
            text: look.beside ? look.countdown : ""
            font.pixelSize: Theme.body
            font.weight: Font.DemiBold
            color: look.textColor
            horizontalAlignment: Text.AlignRight
            wrapMode: Text.Wrap
            maximumLineCount: 2
            elide: Text.ElideRight
        }
    }
}

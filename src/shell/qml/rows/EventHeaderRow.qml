import QtQuick
import Dayward

// The head of the event editor: its icon, its name to type in, its category.
RowFrame {
    id: frame
    showsHead: false
    takesFocus: false

    Row {
        width: parent.width
        topPadding: 12
        spacing: 14

        BarButton {
            id: iconButton
            width: Math.round(80 * Math.max(1, Theme.scale * 0.85))
            height: width
            text: Theme.tr("Icon")
            onClicked: frame.rows.tapItem(frame.index, 0)
            background: Rectangle {
                radius: 20
                color: iconButton.hovered ? Qt.tint(Theme.field, Theme.pressed) : Theme.field
                FocusRing {
                    target: iconButton
                    radius: 20
                }
            }
            contentItem: Item {
                Picture {
                    anchors.top: parent.top
                    anchors.topMargin: help.visible ? 8 : (parent.height - height) / 2
                    anchors.horizontalCenter: parent.horizontalCenter
                    width: help.visible ? parent.height - help.height - 18 : Math.round(parent.height * 0.68)
                    height: width
                    whole: true
                    key: frame.row.content.icon ?? ""
                }
                UiText {
                    id: help
                    visible: text.length > 0
                    anchors.bottom: parent.bottom
                    anchors.horizontalCenter: parent.horizontalCenter
                    anchors.bottomMargin: 7
                    width: parent.width - 14
                    horizontalAlignment: Text.AlignHCenter
                    fontSizeMode: Text.HorizontalFit
                    minimumPixelSize: 9
                    text: frame.row.content.iconHelp ?? ""
                    font.pixelSize: Theme.caption
                    color: Theme.secondaryText
                }
            }
        }
        Column {
            width: parent.width - iconButton.width - parent.spacing
            LineField {
                width: parent.width
                text: frame.row.content.name ?? ""
                placeholder: frame.row.content.namePlaceholder ?? ""
                spoken: placeholder
                fontSize: Theme.title
                focus: true
                onEdited: text => frame.rows.editText(frame.index, text)
            }
            Rectangle {
                width: parent.width
                height: 1
                color: Theme.separator
            }
            BarButton {
                id: categoryButton
                width: parent.width
                // Its ground goes beyond its texts, which stay in line with the name.
                leftInset: -8
                rightInset: -8
                text: (frame.row.content.categoryPlaceholder ?? "") + ": " + (frame.row.content.category ?? "")
                onClicked: frame.rows.tapItem(frame.index, 1)
                background: Rectangle {
                    radius: 8
                    color: categoryButton.hovered ? Theme.pressed : "transparent"
                    FocusRing {
                        target: categoryButton
                        radius: 8
                    }
                }
                contentItem: Row {
                    spacing: 6
                    UiText {
                        id: categoryLabel
                        anchors.verticalCenter: parent.verticalCenter
                        // A long category stands alone, where both would be cut.
                        visible: implicitWidth + category.implicitWidth + 44 <= parent.width
                        text: frame.row.content.categoryPlaceholder ?? ""
                        color: Theme.secondaryText
                    }
                    UiText {
                        id: category
                        anchors.verticalCenter: parent.verticalCenter
                        width: parent.width - (categoryLabel.visible ? categoryLabel.width + 6 : 0) - 26
                        text: frame.row.content.category ?? ""
                        elide: Text.ElideRight
                        horizontalAlignment: Text.AlignRight
                    }
                    Symbol {
                        anchors.verticalCenter: parent.verticalCenter
                        name: "forward"
                        size: 20
                        mirror: Theme.rightToLeft
                        color: Theme.secondaryText
                    }
                }
            }
        }
    }
}

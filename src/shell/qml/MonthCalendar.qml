import QtQuick
import QtQuick.Controls
import Dayward

// A month's days to pick one from; its head goes from month to month, the arrows from day to day.
FocusScope {
    id: root

    property int year: 2001
    property int month: 1
    property int day: 1
    signal picked(year: int, month: int, day: int)

    // The month that is in sight.
    property int shownYear: year
    property int shownMonth: month
    readonly property var language: Qt.locale(Appearance.localeName)
    readonly property real cell: Math.min(52, width / 7)

    function show(months: int) {
        const place = shownYear * 12 + shownMonth - 1 + months
        shownYear = Math.floor(place / 12)
        shownMonth = place - shownYear * 12 + 1
    }
    function step(days: int) {
        const date = new Date(year, month - 1, day + days, 12)
        picked(date.getFullYear(), date.getMonth() + 1, date.getDate())
    }

    onYearChanged: shownYear = year
    onMonthChanged: {
        shownYear = year
        shownMonth = month
    }

    implicitHeight: column.implicitHeight + 6
    activeFocusOnTab: true
    Accessible.role: Accessible.Grouping
    Accessible.name: new Date(year, month - 1, day, 12).toLocaleDateString(language, Locale.LongFormat)
    Keys.onPressed: event => {
        const sideways = Theme.rightToLeft ? -1 : 1
        if (event.key === Qt.Key_Left)
            step(-sideways)
        else if (event.key === Qt.Key_Right)
            step(sideways)
        else if (event.key === Qt.Key_Up)
            step(-7)
        else if (event.key === Qt.Key_Down)
            step(7)
        else if (event.key === Qt.Key_PageUp)
            show(-1)
        else if (event.key === Qt.Key_PageDown)
            show(1)
        else
            return
        event.accepted = true
    }

    FocusRing {
        target: root
        radius: 10
    }
    Column {
        id: column
        width: root.cell * 7
        anchors.horizontalCenter: parent.horizontalCenter

        Item {
            width: parent.width
            height: Theme.target
            BarButton {
                anchors.left: parent.left
                symbol: "back"
                text: Theme.tr("Previous month")
                focusPolicy: Qt.NoFocus
                onClicked: root.show(-1)
            }
            UiText {
                anchors.centerIn: parent
                text: root.language.standaloneMonthName(root.shownMonth - 1) + " " + root.shownYear
                font.weight: Font.DemiBold
                font.capitalization: Font.Capitalize
            }
            BarButton {
                anchors.right: parent.right
                symbol: "forward"
                text: Theme.tr("Next month")
                focusPolicy: Qt.NoFocus
                onClicked: root.show(1)
            }
        }
        DayOfWeekRow {
            width: parent.width
            locale: root.language
            spacing: 0
            leftPadding: 0
            rightPadding: 0
            delegate: UiText {
                required property string shortName
                text: shortName
                font.pixelSize: Theme.caption
                color: Theme.secondaryText
                horizontalAlignment: Text.AlignHCenter
            }
        }
        MonthGrid {
            id: grid
            width: parent.width
            height: Math.round(40 * 6)
            locale: root.language
            year: root.shownYear
            month: root.shownMonth - 1
            spacing: 0
            padding: 0
            delegate: Item {
                id: cell
                required property var model
                readonly property bool inMonth: model.month === grid.month
                readonly property bool chosen: inMonth && model.day === root.day && model.month === root.month - 1 && model.year === root.year
                Rectangle {
                    anchors.centerIn: parent
                    width: 36
                    height: 36
                    radius: 18
                    color: cell.chosen ? Theme.accent : "transparent"
                    border.width: cell.model.today && !cell.chosen ? 1 : 0
                    border.color: Theme.accent
                }
                UiText {
                    anchors.centerIn: parent
                    text: cell.model.day
                    font.pixelSize: Theme.small
                    font.weight: cell.chosen ? Font.DemiBold : Font.Normal
                    color: cell.chosen ? Theme.accentText : cell.inMonth ? Theme.text : Theme.secondaryText
                    opacity: cell.inMonth ? 1 : 0.45
                }
                Accessible.role: Accessible.Button
                Accessible.name: cell.model.day
                TapHandler {
                    onTapped: root.picked(cell.model.year, cell.model.month + 1, cell.model.day)
                }
            }
        }
    }
}

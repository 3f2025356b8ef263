import QtQuick
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
    readonly property date now: new Date()
    readonly property real cell: Math.min(52, width / 7)

    function show(months: int) {
        const place = shownYear * 12 + shownMonth - 1 + months
        shownYear = Math.floor(place / 12)
        shownMonth = place - shownYear * 12 + 1
    }
    // At noon, which every day has. The constructor would take the years up to 99 for those of its century.
    function dateOf(itsYear: int, itsMonth: int, itsDay: int): date {
        const date = new Date(2000, 0, 1, 12)
        date.setFullYear(itsYear, itsMonth - 1, itsDay)
        return date
    }
    // The day at a place of the grid, which begins with the week of the first of the month.
    function dateAt(place: int): date {
        const first = dateOf(shownYear, shownMonth, 1).getDay()
        return dateOf(shownYear, shownMonth, 1 + place - (first - Appearance.firstWeekday + 7) % 7)
    }
    function isDay(date: date, itsYear: int, itsMonth: int, itsDay: int): bool {
        return date.getDate() === itsDay && date.getMonth() === itsMonth - 1 && date.getFullYear() === itsYear
    }
    function pick(date: date) {
        picked(date.getFullYear(), date.getMonth() + 1, date.getDate())
    }
    function step(days: int) {
        pick(dateOf(year, month, day + days))
    }

    onYearChanged: shownYear = year
    onMonthChanged: {
        shownYear = year
        shownMonth = month
    }

    implicitHeight: column.implicitHeight + 6
    activeFocusOnTab: true
    Accessible.role: Accessible.Grouping
    Accessible.name: dateOf(year, month, day).toLocaleDateString(language, Locale.LongFormat)
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
                text: root.language.standaloneMonthName(root.shownMonth - 1) + " " + Theme.digits(root.shownYear.toString())
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
        Row {
            Repeater {
                model: 7
                delegate: UiText {
                    required property int index
                    width: root.cell
                    text: root.language.standaloneDayName((Appearance.firstWeekday + index) % 7, Locale.ShortFormat)
                    font.pixelSize: Theme.caption
                    fontSizeMode: Text.HorizontalFit
                    minimumPixelSize: 8
                    color: Theme.secondaryText
                    horizontalAlignment: Text.AlignHCenter
                }
            }
        }
        Grid {
            id: grid
            readonly property int dayHeight: 40
            columns: 7
            Repeater {
                // Six weeks hold any month.
                model: 42
                delegate: Item {
                    id: cell
                    required property int index
                    readonly property date date: root.dateAt(index)
                    readonly property bool inMonth: date.getMonth() === root.shownMonth - 1
                    readonly property bool chosen: inMonth && root.isDay(date, root.year, root.month, root.day)
                    readonly property bool today: root.isDay(date, root.now.getFullYear(), root.now.getMonth() + 1, root.now.getDate())
                    width: root.cell
                    height: grid.dayHeight
                    Rectangle {
                        anchors.centerIn: parent
                        width: 36
                        height: 36
                        radius: 18
                        color: cell.chosen ? Theme.accent : "transparent"
                        border.width: cell.today && !cell.chosen ? 1 : 0
                        border.color: Theme.accent
                    }
                    UiText {
                        anchors.centerIn: parent
                        text: Theme.digits(cell.date.getDate().toString())
                        font.pixelSize: Theme.small
                        font.weight: cell.chosen ? Font.DemiBold : Font.Normal
                        color: cell.chosen ? Theme.accentText : cell.inMonth ? Theme.text : Theme.secondaryText
                        opacity: cell.inMonth ? 1 : 0.45
                    }
                    Accessible.role: Accessible.Button
                    Accessible.name: cell.date.toLocaleDateString(root.language, Locale.LongFormat)
                    Accessible.onPressAction: root.pick(cell.date)
                    TapHandler {
                        onTapped: root.pick(cell.date)
                    }
                }
            }
        }
    }
}

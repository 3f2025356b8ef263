import QtQuick
import Dayward

// A month's days to pick one from. Its head goes from month to month and opens wheels of months and years; the
// arrows go from day to day, the page keys from month to month, and with Shift from year to year.
FocusScope {
    id: root

    property int year: 2001
    property int month: 1
    property int day: 1
    signal picked(year: int, month: int, day: int)

    // The month that is in sight.
    property int shownYear: year
    property int shownMonth: month
    // The wheels stand in place of the days.
    property bool choosesMonth: false
    readonly property int lastYear: 9999
    readonly property var language: Qt.locale(Appearance.localeName)
    readonly property real cell: Math.min(52, width / 7)

    // The place of a month among all: 12 is January of the year 1.
    function placeOf(itsYear: int, itsMonth: int): int {
        return Math.max(12, Math.min(lastYear * 12 + 11, itsYear * 12 + itsMonth - 1))
    }
    function show(months: int) {
        const place = placeOf(shownYear, shownMonth + months)
        shownYear = Math.floor(place / 12)
        shownMonth = place - shownYear * 12 + 1
    }
    // Back from where the head has gone.
    function showPicked() {
        shownYear = year
        shownMonth = month
    }
    // Picks the same day of the month that is as far from the one in sight, its last where it is too short.
    function turn(months: int) {
        const place = placeOf(shownYear, shownMonth + months)
        const itsYear = Math.floor(place / 12)
        const itsMonth = place - itsYear * 12 + 1
        const lastDay = dateOf(itsYear, itsMonth + 1, 0).getDate()
        pick(dateOf(itsYear, itsMonth, Math.min(day, lastDay)))
    }
    function monthName(itsMonth: int): string {
        const name = language.standaloneMonthName(itsMonth - 1)
        return name.charAt(0).toUpperCase() + name.slice(1)
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
        showPicked()
    }
    function step(days: int) {
        pick(dateOf(year, month, day + days))
    }

    onYearChanged: showPicked()
    onMonthChanged: showPicked()

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
            turn(event.modifiers & Qt.ShiftModifier ? -12 : -1)
        else if (event.key === Qt.Key_PageDown)
            turn(event.modifiers & Qt.ShiftModifier ? 12 : 1)
        else
            return
        event.accepted = true
    }

    Today {
        id: present
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
            BarButton {
                anchors.centerIn: parent
                text: root.monthName(root.shownMonth) + " " + Theme.digits(root.shownYear.toString())
                tint: root.choosesMonth ? Theme.accent : Theme.text
                strong: true
                focusPolicy: Qt.NoFocus
                onClicked: root.choosesMonth = !root.choosesMonth
            }
            BarButton {
                anchors.right: parent.right
                symbol: "forward"
                text: Theme.tr("Next month")
                focusPolicy: Qt.NoFocus
                onClicked: root.show(1)
            }
        }
        Loader {
            active: root.choosesMonth
            visible: active
            focus: active
            width: parent.width
            sourceComponent: Row {
                Wheel {
                    width: parent.width * 0.6
                    titles: Array.from({
                        "length": 12
                    }, (_, place) => root.monthName(place + 1))
                    selected: root.shownMonth - 1
                    spoken: Theme.tr("Months")
                    onPicked: place => root.turn(place + 1 - root.shownMonth)
                }
                Wheel {
                    focus: true
                    width: parent.width * 0.4
                    titles: Array.from({
                        "length": root.lastYear
                    }, (_, place) => Theme.digits((place + 1).toString()))
                    selected: root.shownYear - 1
                    spoken: Theme.tr("Years")
                    onPicked: place => root.turn(12 * (place + 1 - root.shownYear))
                }
            }
        }
        Row {
            visible: !root.choosesMonth
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
            visible: !root.choosesMonth
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
                    readonly property bool today: root.isDay(date, present.year, present.month, present.day)
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

import QtQuick
import Dayward

// A time of day on wheels, with 12 or 24 hours by the user's custom.
Row {
    id: root

    property int hour: 0
    property int minute: 0
    signal picked(hour: int, minute: int)

    readonly property var clock: Qt.locale(Appearance.localeName)
    readonly property bool halves: Appearance.halvesDay
    // Twelve stands before one, as on the clock.
    readonly property var hours: Array.from({
        "length": halves ? 12 : 24
    }, (_, hour) => halves ? Theme.digits((hour === 0 ? 12 : hour).toString()) : twoDigits(hour))
    readonly property var minutes: Array.from({
        "length": 60
    }, (_, minute) => twoDigits(minute))
    readonly property int columns: halves ? 3 : 2
    readonly property real columnWidth: Math.min(110, width / columns)

    function twoDigits(number: int): string {
        return Theme.digits(number.toString().padStart(2, "0"))
    }

    leftPadding: Math.max(0, (width - columns * columnWidth) / 2)

    Wheel {
        focus: true
        width: root.columnWidth
        titles: root.hours
        selected: root.halves ? root.hour % 12 : root.hour
        spoken: Theme.tr("Hours")
        onPicked: place => root.picked(root.halves ? place + (root.hour >= 12 ? 12 : 0) : place, root.minute)
    }
    Wheel {
        width: root.columnWidth
        titles: root.minutes
        selected: root.minute
        spoken: Theme.tr("Minutes")
        onPicked: place => root.picked(root.hour, place)
    }
    Wheel {
        visible: root.halves
        width: root.columnWidth
        titles: [root.clock.amText, root.clock.pmText]
        selected: root.hour >= 12 ? 1 : 0
        spoken: root.clock.amText + ", " + root.clock.pmText
        onPicked: place => root.picked(root.hour % 12 + 12 * place, root.minute)
    }
}

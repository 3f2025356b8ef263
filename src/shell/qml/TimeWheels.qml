import QtQuick
import Dayward

// A time of day on wheels, with 12 or 24 hours by the user's custom.
Row {
    id: root

    property int hour: 0
    property int minute: 0
    signal picked(hour: int, minute: int)

    readonly property var clock: Qt.locale(Appearance.localeName)
    readonly property bool halves: clock.timeFormat(Locale.ShortFormat).toLowerCase().includes("a")
    readonly property int columns: halves ? 3 : 2
    readonly property real columnWidth: Math.min(110, width / columns)

    function range(from: int, count: int, pad: bool): var {
        return Array.from({
            "length": count
        }, (_, place) => pad ? String(from + place).padStart(2, "0") : String(from + place))
    }

    leftPadding: Math.max(0, (width - columns * columnWidth) / 2)

    Wheel {
        width: root.columnWidth
        // Twelve stands before one, as on the clock.
        titles: root.halves ? ["12"].concat(root.range(1, 11, false)) : root.range(0, 24, true)
        selected: root.halves ? root.hour % 12 : root.hour
        spoken: Theme.tr("Hours")
        onPicked: place => root.picked(root.halves ? place + (root.hour >= 12 ? 12 : 0) : place, root.minute)
    }
    Wheel {
        width: root.columnWidth
        titles: root.range(0, 60, true)
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

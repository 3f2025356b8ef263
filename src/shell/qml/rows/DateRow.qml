import QtQuick
import Dayward

// A day, a time of day or both to pick.
RowFrame {
    id: frame
    readonly property var date: row.content

    function pick(year: int, month: int, day: int, hour: int, minute: int) {
        rows.pickDate(index, year, month, day, hour, minute)
    }

    // "Today" may pick the day that is picked already, while another month is in sight.
    onDateChanged: (calendar.item as MonthCalendar)?.showPicked()

    Loader {
        id: calendar
        focus: active
        width: parent.width
        active: frame.isOpen && (frame.date.hasDate ?? false)
        visible: active
        sourceComponent: MonthCalendar {
            focus: true
            year: frame.date.year
            month: frame.date.month
            day: frame.date.day
            onPicked: (year, month, day) => frame.pick(year, month, day, frame.date.hour, frame.date.minute)
        }
    }
    Loader {
        focus: active && !frame.date.hasDate
        width: parent.width
        active: frame.isOpen && (frame.date.hasTime ?? false)
        visible: active
        sourceComponent: TimeWheels {
            hour: frame.date.hour
            minute: frame.date.minute
            onPicked: (hour, minute) => frame.pick(frame.date.year, frame.date.month, frame.date.day, hour, minute)
        }
    }
}

import QtQuick
import Dayward

// How far a row of a form is from its place while it slides there. A transition of the view would end where the
// place was when it began, and lay the row over others whose texts have wrapped since.
Translate {
    id: slide
    required property Item row
    property real last: NaN

    function follow() {
        if ((row.ListView.view as TableBody)?.sliding && !isNaN(last)) {
            y += last - row.y
            motion.restart()
        }
        last = row.y
    }

    readonly property Connections place: Connections {
        target: slide.row
        function onYChanged() {
            slide.follow()
        }
    }
    readonly property NumberAnimation motion: NumberAnimation {
        target: slide
        property: "y"
        to: 0
        duration: Theme.calm
        easing.type: Easing.OutCubic
    }
}

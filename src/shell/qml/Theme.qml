pragma Singleton

import QtQuick
import Dayward

// Colours, sizes and durations of the interface, in one place.
QtObject {
    readonly property bool dark: Appearance.dark

    readonly property color window: dark ? "#121117" : "#f3f2f7"
    readonly property color card: dark ? "#1e1c25" : "#ffffff"
    readonly property color raised: dark ? "#25222d" : "#ffffff"
    readonly property color text: dark ? "#f3f1f8" : "#17151f"
    readonly property color secondaryText: dark ? "#aba6b8" : "#625f6d"
    readonly property color separator: dark ? "#312e3b" : "#e5e3ec"
    readonly property color field: dark ? "#35313f" : "#eeecf4"
    readonly property color accent: dark ? "#a99cff" : "#5a46dc"
    readonly property color accentText: dark ? "#17122e" : "#ffffff"
    readonly property color accentSoft: dark ? "#332d55" : "#ebe8ff"
    readonly property color destructive: dark ? "#ff8a80" : "#c62828"
    // Of texts and signs on the accent or on what destroys.
    readonly property color onFill: dark ? "#1b1420" : "#ffffff"
    // Stands on pictures, which are the same in the dark.
    readonly property color missed: "#d32f2f"
    readonly property color pressed: dark ? "#14ffffff" : "#0f000000"
    readonly property color dim: dark ? "#a6000000" : "#66000000"

    readonly property real scale: Appearance.textScale
    readonly property string family: Appearance.family
    readonly property int caption: Math.round(12 * scale)
    readonly property int small: Math.round(14 * scale)
    readonly property int body: Math.round(16 * scale)
    readonly property int headline: Math.round(18 * scale)
    readonly property int title: Math.round(22 * scale)
    readonly property int largeTitle: Math.round(30 * scale)

    readonly property int spacing: 8
    readonly property int margin: 16
    // Of the list's rows, whose pictures want more of the width than forms do.
    readonly property int listInset: 12
    readonly property int radius: 14
    // The least that a finger hits.
    readonly property int target: 44
    readonly property int rowHeight: Math.round(52 * Math.max(1, scale * 0.95))
    readonly property int barHeight: Math.round(56 * Math.max(1, scale * 0.9))
    // Of an event in the list; large texts stand below each other, the name on two lines.
    readonly property int eventHeight: Math.round(76 * scale * (scale > 1.2 ? 1.25 : 1))
    // Forms don't grow wider than this.
    readonly property int formWidth: 680
    readonly property int twoColumns: 760

    readonly property int quick: 150
    readonly property int calm: 220

    readonly property bool rightToLeft: Appearance.rightToLeft

    readonly property string zero: Qt.locale(Appearance.localeName).zeroDigit

    // A number in the digits of the user's locale.
    function digits(number: string): string {
        return number.replace(/[0-9]/g, digit => String.fromCodePoint(zero.codePointAt(0) + Number(digit)))
    }
    // As a heading begins, also where the language writes its months small.
    function heading(text: string): string {
        return text.charAt(0).toLocaleUpperCase() + text.slice(1)
    }
    // Its numbers stay on the line of what they count.
    function unbroken(text: string): string {
        return text.replace(/([0-9]) /g, "$1\u00a0")
    }
    // By recursion: the compiler of Qt 6.4 crashes on a loop over a typed item.
    function isWithin(ancestor: Item, item: Item): bool {
        return item !== null && (item === ancestor || isWithin(ancestor, item.parent))
    }
    // Where Tab stops within an item, in order.
    function stopsIn(item) {
        const stops = new Set()
        let stop = item.activeFocusOnTab ? item : item.nextItemInFocusChain(true)
        while (isWithin(item, stop) && !stops.has(stop)) {
            stops.add(stop)
            stop = stop.nextItemInFocusChain(true)
        }
        return Array.from(stops)
    }
    function tr(english: string): string {
        return Appearance.text(english)
    }
}

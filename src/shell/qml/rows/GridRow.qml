import QtQuick
import Dayward

// Values to tap: numbers, colours or pictures, in columns. The arrows go from one to the next.
RowFrame {
    id: frame
    showsHead: row.canOpen || row.hasSwitch
    takesFocus: row.canOpen

    readonly property var items: row.content.items ?? []
    readonly property bool hasPictures: items.length > 0 && items[0].picture.length > 0
    readonly property bool hasColors: items.length > 0 && items[0].hasColor
    readonly property int wanted: row.content.columns ?? 0
    readonly property int gap: hasPictures ? 10 : 6

    FocusScope {
        id: tiles
        property int current: 0
        readonly property int least: frame.hasPictures ? 72 : frame.hasColors ? 46 : 64
        readonly property int columns: frame.wanted > 0 ? frame.wanted : Math.max(1, Math.floor((width + frame.gap) / (least + frame.gap)))
        readonly property real tileWidth: (width - (columns - 1) * frame.gap) / columns
        readonly property real tileHeight: frame.hasPictures || (frame.hasColors && frame.wanted === 0) ? tileWidth : Theme.target

        function go(step: int) {
            const next = current + step
            if (next < 0 || next >= frame.items.length)
                return false
            current = next
            repeater.itemAt(next).forceActiveFocus(Qt.TabFocusReason)
            return true
        }

        width: parent.width
        height: grid.implicitHeight + (frame.showsHead ? 0 : 12)
        activeFocusOnTab: true
        onActiveFocusChanged: if (activeFocus && repeater.count > 0)
            repeater.itemAt(current).focus = true
        Keys.onPressed: event => {
            const sideways = Theme.rightToLeft ? -1 : 1
            if (event.key === Qt.Key_Right)
                event.accepted = go(sideways)
            else if (event.key === Qt.Key_Left)
                event.accepted = go(-sideways)
            else if (event.key === Qt.Key_Down)
                event.accepted = go(columns)
            else if (event.key === Qt.Key_Up)
                event.accepted = go(-columns)
        }

        // A drag along the numbers turns over each that it comes to. It starts sideways, for up and down the
        // list is moved.
        DragHandler {
            id: sweep
            property var swept: new Set()
            function take(position: point) {
                const at = grid.mapFromItem(tiles, position.x, position.y)
                const tile = grid.childAt(at.x, at.y) as GridTile
                if (!tile || swept.has(tile.place))
                    return
                swept.add(tile.place)
                frame.rows.tapItem(frame.index, tile.place)
            }
            enabled: frame.wanted > 0
            target: null
            yAxis.enabled: false
            grabPermissions: PointerHandler.CanTakeOverFromAnything
            onActiveChanged: {
                swept = new Set()
                if (active)
                    take(centroid.pressPosition)
            }
            onCentroidChanged: if (active)
                take(centroid.position)
        }
        Grid {
            id: grid
            y: frame.showsHead ? 0 : 12
            width: parent.width
            columns: tiles.columns
            spacing: frame.gap
            Repeater {
                id: repeater
                model: frame.isOpen ? frame.items.length : 0
                delegate: GridTile {
                    required property int index
                    place: index
                    width: tiles.tileWidth
                    height: tiles.tileHeight
                    item: frame.items[index] ?? ({})
                    round: frame.hasColors
                    toggles: frame.wanted > 0
                    onTapped: {
                        tiles.current = index
                        forceActiveFocus(Qt.MouseFocusReason)
                        frame.rows.tapItem(frame.index, index)
                    }
                }
            }
        }
    }
}

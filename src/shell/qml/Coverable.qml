import QtQuick
import Dayward

// Content that something may cover; then a screen reader is told of nothing in it.
CoverableItem {
    // Without a role of its own it would be passed over, and its children told.
    Accessible.role: Accessible.Pane
}

import QtQuick
import Dayward

// An event as a picture to share: the view of its screen, without what can be tapped.
DetailView {
    topSpace: 24
    bottomSpace: 24
}

import QtQuick
import QtQuick.Controls
import Dayward

// Draws a stack: brings its pages into line with the stack's screens, with the move that tells which way.
FocusScope {
    id: root

    required property StackItem stack
    // Of the pages' corners.
    property int radius: 0
    // Something lies over the stack.
    property bool covered: false

    function sync() {
        if (!root.stack)
            return
        const wanted = root.stack.screens
        let common = 0
        while (common < view.depth && common < wanted.length && view.get(common, StackView.ForceLoad).screen === wanted[common])
            ++common
        if (common === view.depth && common === wanted.length)
            return
        if (common === wanted.length && common > 0) {
            view.pop(view.get(common - 1))
            return
        }
        if (common < view.depth) {
            if (common === 0)
                view.clear(StackView.Immediate)
            else
                view.pop(view.get(common - 1), StackView.Immediate)
        }
        for (let index = common; index < wanted.length; ++index) {
            const animated = view.depth > 0 && index === wanted.length - 1
            view.push(page, {
                "screen": wanted[index],
                "canGoBack": index > 0,
                "radius": Qt.binding(() => root.radius),
                "covered": Qt.binding(() => root.covered || panel.panel !== null)
            }, animated ? StackView.PushTransition : StackView.Immediate)
        }
    }

    Component.onCompleted: sync()
    Connections {
        target: root.stack
        function onChanged() {
            Qt.callLater(root.sync) // qmllint disable
        }
    }
    Component {
        id: page
        ScreenPage {}
    }
    Coverable {
        anchors.fill: parent
        covered: panel.panel !== null

        StackView {
            id: view
            anchors.fill: parent
            focus: true

            component Slide: NumberAnimation {
                property: "x"
                duration: Theme.calm
                easing.type: Easing.OutCubic
            }
            readonly property int away: (Theme.rightToLeft ? -1 : 1) * width

            pushEnter: Transition {
                Slide {
                    from: view.away
                    to: 0
                }
            }
            pushExit: Transition {
                Slide {
                    from: 0
                    to: -view.away * 0.3
                }
            }
            popEnter: Transition {
                Slide {
                    from: -view.away * 0.3
                    to: 0
                }
            }
            popExit: Transition {
                Slide {
                    from: 0
                    to: view.away
                }
            }
            onCurrentItemChanged: if (currentItem)
                currentItem.forceActiveFocus()
        }
    }
    PanelSheet {
        id: panel
        anchors.fill: parent
        panel: root.stack?.panel ?? null
    }
}

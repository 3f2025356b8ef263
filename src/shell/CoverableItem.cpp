#include "shell/CoverableItem.h"

#include <QAccessible>
#include <QAccessibleObject>
#include <QQuickWindow>
#include <algorithm>

namespace dayward {

namespace {

/// What the item is for a screen reader. Qt's own interface always has the children of its item.
class CoverableInterface final : public QAccessibleObject {
public:
    explicit CoverableInterface(CoverableItem& item) : QAccessibleObject(&item), item_(item) {}

    QWindow* window() const override { return item_.window(); }
    QAccessible::Role role() const override { return QAccessible::Pane; }
    QString text(QAccessible::Text) const override { return {}; }
    QRect rect() const override {
        const QRect inWindow = item_.mapRectToScene(item_.boundingRect()).toRect();
        return item_.window() != nullptr ? inWindow.translated(item_.window()->mapToGlobal(QPoint())) : inWindow;
    }
    QAccessible::State state() const override {
        QAccessible::State state;
        state.invisible = item_.isCovered() || !item_.isVisible();
        return state;
    }
    QAccessibleInterface* parent() const override {
        for (QQuickItem* item = item_.parentItem(); item != nullptr; item = item->parentItem()) {
            if (auto* const found = QAccessible::queryAccessibleInterface(item)) return found;
        }
        return QAccessible::queryAccessibleInterface(item_.window());
    }
    int childCount() const override { return static_cast<int>(children().size()); }
    QAccessibleInterface* child(int place) const override { return children().value(place); }
    int indexOfChild(const QAccessibleInterface* child) const override {
        return static_cast<int>(children().indexOf(const_cast<QAccessibleInterface*>(child)));
    }
    QAccessibleInterface* childAt(int x, int y) const override {
        const auto all = children();
        const auto found = std::find_if(all.crbegin(), all.crend(), [x, y](const QAccessibleInterface* child) {
            return !child->state().invisible && child->rect().contains(x, y);
        });
        return found != all.crend() ? *found : nullptr;
    }

private:
    QList<QAccessibleInterface*> children() const {
        QList<QAccessibleInterface*> found;
        if (!item_.isCovered()) collect(item_, found);
        return found;
    }
    /// Items that say nothing are passed over for those in them.
    static void collect(const QQuickItem& item, QList<QAccessibleInterface*>& found) {
        for (QQuickItem* const child : item.childItems()) {
            if (auto* const spoken = QAccessible::queryAccessibleInterface(child))
                found.append(spoken);
            else
                collect(*child, found);
        }
    }

    CoverableItem& item_;
};

QAccessibleInterface* makeInterface(const QString&, QObject* object) {
    auto* const item = qobject_cast<CoverableItem*>(object);
    return item != nullptr ? new CoverableInterface(*item) : nullptr;
}

}  // namespace

void CoverableItem::setCovered(bool isCovered) {
    if (isCovered == isCovered_) return;
    isCovered_ = isCovered;
    emit coveredChanged();
    QAccessibleEvent event(this, isCovered ? QAccessible::ObjectHide : QAccessible::ObjectShow);
    QAccessible::updateAccessibility(&event);
}

void prepareCoverables() { QAccessible::installFactory(makeInterface); }

}  // namespace dayward

#include "shell/StackItem.h"

#include <algorithm>
#include <utility>

namespace dayward {

StackItem::StackItem(Navigation& navigation, StackId id, Pictures& pictures, QObject* parent)
    : QObject(parent), navigation_(navigation), id_(id), pictures_(pictures) {
    refresh();
}

StackItem::~StackItem() = default;

ScreenItem* StackItem::itemOf(const Presenter::Screen& screen) {
    const auto known = std::ranges::find(screens_, screen, &ScreenItem::screen);
    return known != screens_.end() ? *known : ScreenItem::make(screen, pictures_, this);
}

void StackItem::refresh() {
    QList<ScreenItem*> wanted;
    for (const Presenter::Screen& screen : navigation_.screens(id_)) wanted.append(itemOf(screen));
    if (wanted == screens_) return;
    const QList<ScreenItem*> before = std::exchange(screens_, wanted);
    emit changed();
    for (ScreenItem* item : before) {
        if (!screens_.contains(item)) item->retire();
    }
}

QVariantList StackItem::screenObjects() const {
    QVariantList objects;
    for (ScreenItem* item : screens_) objects.append(QVariant::fromValue(item));
    return objects;
}

void StackItem::refreshPanel() {
    const Presenter::Screen wanted = navigation_.panel(id_);
    if (panel_ != nullptr && panel_->screen() == wanted) return;
    ScreenItem* const before = std::exchange(panel_, wanted ? ScreenItem::make(wanted, pictures_, this) : nullptr);
    emit panelChanged();
    if (before != nullptr) before->retire();
}

void StackItem::retire() {
    for (ScreenItem* item : std::as_const(screens_)) item->retire();
    if (panel_ != nullptr) panel_->retire();
    deleteLater();
}

bool StackItem::pressFromTop(const QString& role) {
    const QList<ScreenItem*> screens = screens_;
    return std::any_of(screens.crbegin(), screens.crend(), [&](ScreenItem* item) { return item->press(role); });
}

bool StackItem::goBack() { return navigation_.goBack(id_); }

}  // namespace dayward

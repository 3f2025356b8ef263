#include "shell/ListItem.h"

#include "shell/QtValues.h"

namespace dayward {

ListItem::ListItem(std::shared_ptr<EventListViewController> list, Pictures& pictures, QObject* parent)
    : ScreenItem(list, pictures, parent),
      list_(std::move(list)),
      events_(*list_, list_->table(), pictures),
      found_(*list_, list_->searchTable(), pictures) {
    list_->setListObserver(this);
}

ListItem::~ListItem() { list_->setListObserver(nullptr); }

QString ListItem::searchText() const { return qtText(list_->searchText()); }

QString ListItem::progress() const { return qtText(list_->progressText().value_or("")); }

QString ListItem::adviceTitle() const {
    const auto advice = list_->emptyAdvice();
    return advice ? qtText(advice->title) : QString();
}

QString ListItem::adviceText() const {
    const auto advice = list_->emptyAdvice();
    return advice ? qtText(advice->text) : QString();
}

QString ListItem::selectedKey() const {
    return list_->selectedPath() ? qtText(list_->selectedEventKey().value_or("")) : QString();
}

}  // namespace dayward

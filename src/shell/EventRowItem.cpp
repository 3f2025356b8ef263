#include "shell/EventRowItem.h"

#include <utility>

namespace dayward {

EventRowItem::~EventRowItem() { show({}); }

void EventRowItem::setRow(const EventRowData& row) {
    if (row == row_) return;
    row_ = row;
    if (!isPooled_ && !row_.eventKey.isEmpty()) show(row_.eventKey);
    emit rowChanged();
}

void EventRowItem::setRows(EventListModel* rows) {
    if (rows_ != nullptr || rows == nullptr) return;
    rows_ = rows;
    if (!isPooled_) show(row_.eventKey);
    emit rowsChanged();
}

void EventRowItem::setPooled(bool pooled) {
    if (std::exchange(isPooled_, pooled) == pooled) return;
    show(pooled ? QString() : row_.eventKey);
    emit pooledChanged();
}

void EventRowItem::show(const QString& eventKey) {
    if (rows_ == nullptr || eventKey == shownKey_) return;
    if (!eventKey.isEmpty()) rows_->show(eventKey);
    if (!shownKey_.isEmpty()) rows_->hide(shownKey_);
    shownKey_ = eventKey;
}

}  // namespace dayward

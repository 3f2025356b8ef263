#include "Classes/Interface/List/EventTableManager.h"

#include "Classes/Event/EventLocalStore.h"
#include "Classes/Interface/List/EventByCustomTableManager.h"
#include "Classes/Interface/List/EventByDateTableManager.h"
#include "Classes/Interface/List/EventByNameTableManager.h"
#include "Classes/Interface/List/EventTableViewCell.h"
#include "Classes/Interface/List/TableView.h"
#include "alerts/MissedEventsHelper.h"
#include "platform/Environment.h"
#include "platform/NotificationCenter.h"
#include "platform/Strings.h"

namespace dayward {

EventSortType eventSortType(std::int64_t stored) {
    const std::int64_t mode = stored & 3;
    return mode == 3 ? EventSortType::byDate : static_cast<EventSortType>(mode);
}

std::string eventSortLabel(EventSortType type) {
    switch (type) {
        case EventSortType::byName: return localized("by Name");
        case EventSortType::byCustom: return localized("Customizable");
        default: return localized("by Date");
    }
}

EventTableManager::EventTableManager(TableView* tableView, Contents contents)
    : tableView_(tableView), contents_(contents) {
    setDelegate(this);
}

std::unique_ptr<EventTableManager> EventTableManager::makeForSortType(EventSortType type, TableView* tableView,
                                                                      Contents contents) {
    switch (type) {
        case EventSortType::byName: return std::make_unique<EventByNameTableManager>(tableView, contents);
        case EventSortType::byCustom: return std::make_unique<EventByCustomTableManager>(tableView, contents);
        default: return std::make_unique<EventByDateTableManager>(tableView, contents);
    }
}

void EventTableManager::configureVisibleCells() {
    if (tableView_ == nullptr) return;
    for (const auto& cell : tableView_->visibleCells()) {
        const std::optional<IndexPath> path = tableView_->indexPathForCell(*cell);
        if (path) configureCell(cell, objectAtIndexPath(*path));
    }
}

bool EventTableManager::configureCell(const std::shared_ptr<EventTableViewCell>& cell, const EventRow& forObject) {
    if (!forObject) return false;
    const std::string key = forObject->identifier();
    const EventRowContent content = eventRowContent(*forObject);
    cell->setRow(key, content);
    if (content.icon && !cell->icon()) {
        const std::weak_ptr<EventTableViewCell> row = cell;
        forObject->displayIcon()->getImageWithCompletion([row, key](std::shared_ptr<const Image> image) {
            if (const auto present = row.lock()) present->setIcon(std::move(image), key);
        });
    }
    return true;
}

std::shared_ptr<EventTableViewCell> EventTableManager::cellForRowAtIndexPath(IndexPath path) {
    auto cell = tableView_ != nullptr ? tableView_->dequeueReusableCell(EventTableViewCell::kReuseIdentifier)
                                      : std::make_shared<EventTableViewCell>();
    configureCell(cell, objectAtIndexPath(path));
    return cell;
}

void EventTableManager::willDisplayCell(const std::shared_ptr<EventTableViewCell>& cell, IndexPath forRowAtIndexPath,
                                        PixelSize size) {
    const EventRow event = objectAtIndexPath(forRowAtIndexPath);
    cell->setBackground(EventTableViewHelper::backgroundViewCellForEvent(*event, size), event->identifier());
    const std::weak_ptr<EventTableViewCell> row = cell;
    EventTableViewHelper::getBackgroundImageCellForEvent(
        *event, size, row, [row, key = event->identifier()](const EventTableViewCellBackground& background) {
            if (const auto present = row.lock()) present->setBackground(background, key);
        });
}

void EventTableManager::commitEditingStyle(EditingStyle style, IndexPath forRowAtIndexPath) {
    if (style == EditingStyle::remove) EventLocalStore::shared().removeEvent(objectAtIndexPath(forRowAtIndexPath));
}

void EventTableManager::didSelectRowAtIndexPath(IndexPath path) {
    if (tableView_ != nullptr) tableView_->deselectRow(path, true);
    Environment::current().notifications().post(EventTableManagerDidSelectItemNotification, this,
                                                {{EventTableManagerItemKey, objectAtIndexPath(path)}});
}

void EventTableManager::scrollViewDidEndDragging(bool willDecelerate) {
    if (!willDecelerate || tableView_ == nullptr || tableView_->contentOffsetY() >= kPullToClearOffset) return;
    clearMissedEvents();
}

void EventTableManager::clearMissedEvents() {
    MissedEventsHelper::clear();
    sortData();
}

void EventTableManager::reloadDataForTableDataSource(CCTableDataSourceBase&) {
    if (tableView_ != nullptr) tableView_->reloadData();
}

void EventTableManager::insertRowAtIndexPath(CCTableDataSourceBase&, IndexPath path) {
    if (tableView_ != nullptr) tableView_->insertRow(path);
}

void EventTableManager::reloadRowAtIndexPath(CCTableDataSourceBase&, IndexPath path) {
    if (tableView_ != nullptr) tableView_->reloadRow(path);
}

void EventTableManager::deleteRowAtIndexPath(CCTableDataSourceBase&, IndexPath path) {
    if (tableView_ != nullptr) tableView_->deleteRow(path);
}

void EventTableManager::moveRowAtIndexPath(CCTableDataSourceBase&, IndexPath from, IndexPath to) {
    if (tableView_ != nullptr) tableView_->moveRow(from, to);
}

void EventTableManager::insertSectionAtIndex(CCTableDataSourceBase&, std::size_t index) {
    if (tableView_ != nullptr) tableView_->insertSection(index);
}

void EventTableManager::reloadSectionAtIndex(CCTableDataSourceBase&, std::size_t index) {
    if (tableView_ != nullptr) tableView_->reloadSection(index);
}

void EventTableManager::deleteSectionAtIndex(CCTableDataSourceBase&, std::size_t index) {
    if (tableView_ != nullptr) tableView_->deleteSection(index);
}

void EventTableManager::moveSectionAtIndex(CCTableDataSourceBase&, std::size_t from, std::size_t to) {
    if (tableView_ != nullptr) tableView_->moveSection(from, to);
}

}  // namespace dayward

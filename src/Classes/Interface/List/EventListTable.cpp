#include "Classes/Interface/List/EventListTable.h"

#include <utility>

#include "Classes/Interface/List/EventTableViewCell.h"
#include "Classes/Interface/List/EventTableViewHelper.h"
#include "platform/DispatchQueue.h"
#include "platform/Environment.h"

namespace dayward {

EventListTable::~EventListTable() {
    for (const auto& [key, row] : shown_) row.cell->setObserver({});
}

void EventListTable::configure(EventSortType sortType, std::vector<EventRow> objects) {
    // The old one stays until the view has been told: whoever is selecting in it may still be at it.
    const auto old = std::exchange(manager_, EventTableManager::makeForSortType(sortType, this, contents_));
    manager_->setObjects(std::move(objects));
}

std::size_t EventListTable::numberOfSections() const { return manager_ ? manager_->numberOfSectionsInTableView() : 0; }

std::size_t EventListTable::numberOfRowsInSection(std::size_t section) const {
    return manager_->numberOfRowsInSection(section);
}

std::optional<std::string> EventListTable::headerText(std::size_t section) const {
    auto text = manager_->titleForHeaderInSection(section);
    if (text) text->erase(0, text->find_first_not_of(' '));
    return text;
}

double EventListTable::headerHeight(std::size_t section) const { return manager_->heightForHeaderInSection(section); }

EventRow EventListTable::event(IndexPath path) const { return manager_->objectAtIndexPath(path); }

std::optional<IndexPath> EventListTable::pathOfEvent(const std::string& key) const {
    return manager_ ? manager_->indexPathForObject(std::make_shared<HHEvent>(key)) : std::nullopt;
}

bool EventListTable::hasRow(IndexPath path) const {
    return path.section < numberOfSections() && path.row < numberOfRowsInSection(path.section);
}

bool EventListTable::canMoveRow(IndexPath path) const { return hasRow(path) && manager_->canMoveRowAtIndexPath(path); }

bool EventListTable::didMoveRow(IndexPath from, IndexPath to) {
    if (!canMoveRow(from) || !canMoveRow(to) || from.section != to.section) return false;
    manager_->moveRowAtIndexPath(from, to);
    return true;
}

bool EventListTable::moveRowTo(IndexPath from, IndexPath to) {
    if (!didMoveRow(from, to)) return false;
    moveRow(from, to);
    return true;
}

std::shared_ptr<const EventTableViewCell> EventListTable::showRow(IndexPath path, PixelSize size) {
    EventRow event = manager_->objectAtIndexPath(path);
    const std::string key = event->identifier();
    auto cell = manager_->cellForRowAtIndexPath(path);
    manager_->willDisplayCell(cell, path, size);
    // Pictures may come on any thread; the view hears of them on its own.
    cell->setObserver(
        [life = std::weak_ptr(life_), this, main = mainThread_, key, &queues = Environment::current().queues()] {
            if (std::this_thread::get_id() == main) return cellDidChange(key);
            queues.main().async([life, this, key] {
                if (!life.expired()) cellDidChange(key);
            });
        });
    shown_.insert_or_assign(key, Shown{std::move(event), cell, size});
    return cell;
}

void EventListTable::hideRow(const std::string& eventKey) {
    const auto row = shown_.find(eventKey);
    if (row == shown_.end()) return;
    row->second.cell->setObserver({});
    shown_.erase(row);
}

void EventListTable::preheat(IndexPath path, PixelSize size) const {
    EventTableViewHelper::getBackgroundImageCellForEvent(*manager_->objectAtIndexPath(path), size, life_,
                                                         [](const EventTableViewCellBackground&) {});
}

void EventListTable::cellDidChange(const std::string& eventKey) {
    const auto row = shown_.find(eventKey);
    if (row == shown_.end() || view_ == nullptr) return;
    const auto path = manager_->indexPathForObject(row->second.event);
    if (path) view_->refreshRow(*path);
}

void EventListTable::refreshVisibleRows() {
    const auto rows = shown_;  // the view may show and hide rows meanwhile
    for (const auto& [key, row] : rows) reconfigure(row);
}

void EventListTable::refreshHeaders() {
    if (view_ == nullptr || isEmpty() || !headerText(0)) return;
    for (std::size_t section = 0; section < numberOfSections(); ++section) view_->reloadSection(section);
}

void EventListTable::reconfigure(const Shown& row) {
    const auto path = manager_->indexPathForObject(row.event);
    if (!path) return;
    manager_->configureCell(row.cell, manager_->objectAtIndexPath(*path));
    manager_->willDisplayCell(row.cell, *path, row.size);
}

void EventListTable::reloadData() {
    if (view_ != nullptr) view_->reloadData();
}

void EventListTable::insertRow(IndexPath path) {
    if (view_ != nullptr) view_->insertRow(path);
}

void EventListTable::reloadRow(IndexPath path) {
    const auto row = shown_.find(manager_->objectAtIndexPath(path)->identifier());
    if (row != shown_.end()) reconfigure(row->second);
    if (view_ != nullptr) view_->reloadRow(path);
}

void EventListTable::deleteRow(IndexPath path) {
    if (view_ != nullptr) view_->deleteRow(path);
}

void EventListTable::moveRow(IndexPath from, IndexPath to) {
    if (view_ != nullptr) view_->moveRow(from, to);
}

void EventListTable::insertSection(std::size_t index) {
    if (view_ != nullptr) view_->insertSection(index);
}

void EventListTable::reloadSection(std::size_t index) {
    if (view_ != nullptr) view_->reloadSection(index);
}

void EventListTable::deleteSection(std::size_t index) {
    if (view_ != nullptr) view_->deleteSection(index);
}

void EventListTable::moveSection(std::size_t from, std::size_t to) {
    if (view_ != nullptr) view_->moveSection(from, to);
}

void EventListTable::deselectRow(IndexPath path, bool animated) {
    if (view_ != nullptr) view_->deselectRow(path, animated);
}

std::vector<std::shared_ptr<EventTableViewCell>> EventListTable::visibleCells() {
    std::vector<std::shared_ptr<EventTableViewCell>> cells;
    for (const auto& [key, row] : shown_) cells.push_back(row.cell);
    return cells;
}

std::optional<IndexPath> EventListTable::indexPathForCell(const EventTableViewCell& cell) {
    const auto row = shown_.find(cell.eventIdentifier().value_or(""));
    return row != shown_.end() ? manager_->indexPathForObject(row->second.event) : std::nullopt;
}

std::shared_ptr<EventTableViewCell> EventListTable::dequeueReusableCell(const std::string&) {
    return std::make_shared<EventTableViewCell>();
}

double EventListTable::contentOffsetY() const { return view_ != nullptr ? view_->contentOffsetY() : 0; }

}  // namespace dayward

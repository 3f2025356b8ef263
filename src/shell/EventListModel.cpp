#include "shell/EventListModel.h"

#include "Classes/Interface/List/EventTableViewCell.h"
#include "shell/QtValues.h"

namespace dayward {

EventListModel::EventListModel(EventListViewController& screen, EventListTable& table, Pictures& pictures,
                               QObject* parent)
    : SectionedModelOf(parent), screen_(screen), table_(table), pictures_(pictures) {
    EventListModel::reloadData();
    table_.setView(this);
}

EventListModel::~EventListModel() { table_.setView(nullptr); }

std::vector<int> EventListModel::countRows() const {
    std::vector<int> counts;
    if (table_.manager() == nullptr) return counts;
    for (std::size_t section = 0; section < table_.numberOfSections(); ++section) {
        counts.push_back(static_cast<int>(table_.numberOfRowsInSection(section)));
    }
    return counts;
}

std::shared_ptr<const EventTableViewCell> EventListModel::cellAt(IndexPath path) const {
    const std::string key = table_.event(path)->identifier();
    auto& cell = cells_[key];
    if (!cell) cell = table_.showRow(path, {rowSize_.width(), rowSize_.height()});
    return cell;
}

QVariant EventListModel::data(const QModelIndex& index, int role) const {
    if (!checkIndex(index, CheckIndexOption::IndexIsValid)) return {};
    const Place place = placeAt(index.row());
    if (role == KindRole) return place.row < 0 ? QStringLiteral("header") : QStringLiteral("event");
    if (place.section >= table_.numberOfSections()) return {};
    if (role == HeaderRole) {
        return place.row < 0 ? qtText(table_.headerText(place.section).value_or("")) : QString();
    }
    if (role != RowRole) return {};
    const IndexPath path{place.section, static_cast<std::size_t>(std::max(0, place.row))};
    if (place.row < 0 || path.row >= table_.numberOfRowsInSection(path.section)) {
        return QVariant::fromValue(EventRowData());
    }
    const auto cell = cellAt(path);
    return QVariant::fromValue(cell ? EventRowData(*cell, pictures_) : EventRowData());
}

QHash<int, QByteArray> EventListModel::roleNames() const {
    return {{RowRole, "row"}, {KindRole, "kind"}, {HeaderRole, "header"}};
}

void EventListModel::setRowSize(QSize size) {
    if (size.isEmpty() || size == rowSize_) return;
    rowSize_ = size;
    for (auto& [key, cell] : cells_) {
        if (const auto path = table_.pathOfEvent(key)) cell = table_.showRow(*path, {size.width(), size.height()});
    }
    emit rowSizeChanged();
}

void EventListModel::setOffset(qreal offset) {
    if (offset == offset_) return;
    offset_ = offset;
    emit offsetChanged();
}

void EventListModel::show(const QString& eventKey) { ++delegates_[eventKey.toStdString()]; }

void EventListModel::hide(const QString& eventKey) {
    const std::string key = eventKey.toStdString();
    const auto drawn = delegates_.find(key);
    if (drawn == delegates_.end() || --drawn->second > 0) return;
    delegates_.erase(drawn);
    cells_.erase(key);
    table_.hideRow(key);
}

void EventListModel::select(int place) {
    if (const auto path = pathAt(place)) screen_.selectRow(*path);
}

void EventListModel::removeRow(int place) {
    if (const auto path = pathAt(place)) screen_.deleteRow(*path);
}

bool EventListModel::canMove(int from, int to) const {
    const auto source = pathAt(from);
    const auto target = pathAt(to);
    return source && target && source->section == target->section && table_.canMoveRow(*source) &&
           table_.canMoveRow(*target);
}

void EventListModel::dragRow(int from, int to) {
    if (from == to || !canMove(from, to)) return;
    const IndexPath source = *pathAt(from);
    const IndexPath target = *pathAt(to);
    moveItems(from, 1, to, [&] { screen_.didMoveRow(source, target); });
}

bool EventListModel::stepRow(int place, bool down) {
    const auto path = pathAt(place);
    return path && screen_.moveRow(*path, down ? EventListViewController::Step::down : EventListViewController::Step::up);
}

int EventListModel::placeOfEvent(const QString& eventKey) const {
    const auto path = table_.manager() != nullptr ? table_.pathOfEvent(eventKey.toStdString()) : std::nullopt;
    return path ? indexOf(*path) : -1;
}

void EventListModel::reloadData() {
    beginResetModel();
    cells_.clear();
    readWhetherHeaders();
    takeCounts();
    endResetModel();
}

void EventListModel::readWhetherHeaders() {
    hasHeaders_ = table_.manager() != nullptr && table_.numberOfSections() > 0 && table_.headerText(0).has_value();
}

void EventListModel::insertSection(std::size_t index) {
    if (rowCount() == 0) readWhetherHeaders();
    sectionInserted(index);
}

void EventListModel::reloadRow(IndexPath path) { rowDidChange(path, {RowRole}); }

}  // namespace dayward

#include "Classes/Interface/List/EventTableViewCell.h"

namespace dayward {

void EventTableViewCell::prepareForReuse() {
    const Lock lock(mutex_);
    eventKey_.reset();
    text_ = {};
    icon_.reset();
}

void EventTableViewCell::setRow(std::string eventKey, EventRowText text) {
    const Lock lock(mutex_);
    if (eventKey_ != eventKey) icon_.reset();
    eventKey_ = std::move(eventKey);
    text_ = std::move(text);
}

void EventTableViewCell::setIcon(std::shared_ptr<const Image> icon, const std::string& forEventKey) {
    const Lock lock(mutex_);
    if (eventKey_ == forEventKey) icon_ = std::move(icon);
}

std::optional<std::string> EventTableViewCell::eventKey() const {
    const Lock lock(mutex_);
    return eventKey_;
}

EventRowText EventTableViewCell::text() const {
    const Lock lock(mutex_);
    return text_;
}

std::shared_ptr<const Image> EventTableViewCell::icon() const {
    const Lock lock(mutex_);
    return icon_;
}

}  // namespace dayward

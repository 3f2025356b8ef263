#include "Classes/Interface/List/EventTableViewCell.h"

namespace dayward {

void EventTableViewCell::tellObserver() const {
    Observer observer;
    {
        const Lock lock(mutex_);
        observer = observer_;
    }
    if (observer) observer();
}

void EventTableViewCell::setObserver(Observer observer) {
    const Lock lock(mutex_);
    observer_ = std::move(observer);
}

void EventTableViewCell::prepareForReuse() {
    const Lock lock(mutex_);
    eventIdentifier_.reset();
    content_ = {};
    icon_.reset();
    background_ = {};
}

void EventTableViewCell::setRow(std::string eventKey, EventRowContent content) {
    {
        const Lock lock(mutex_);
        if (eventIdentifier_ == eventKey && content_ == content) return;
        if (eventIdentifier_ != eventKey) background_ = {};
        if (eventIdentifier_ != eventKey || content_.icon != content.icon) icon_.reset();
        eventIdentifier_ = std::move(eventKey);
        content_ = std::move(content);
    }
    tellObserver();
}

void EventTableViewCell::setIcon(std::shared_ptr<const Image> icon, const std::string& forEventKey) {
    {
        const Lock lock(mutex_);
        if (eventIdentifier_ != forEventKey || !content_.icon || icon_ == icon) return;
        icon_ = std::move(icon);
    }
    tellObserver();
}

void EventTableViewCell::setBackground(EventTableViewCellBackground background, const std::string& forEventKey) {
    {
        const Lock lock(mutex_);
        if (eventIdentifier_ != forEventKey || background_ == background) return;
        background_ = std::move(background);
    }
    tellObserver();
}

std::optional<std::string> EventTableViewCell::eventIdentifier() const {
    const Lock lock(mutex_);
    return eventIdentifier_;
}

EventRowContent EventTableViewCell::content() const {
    const Lock lock(mutex_);
    return content_;
}

EventRowText EventTableViewCell::text() const {
    const Lock lock(mutex_);
    return content_.text;
}

std::shared_ptr<const Image> EventTableViewCell::icon() const {
    const Lock lock(mutex_);
    return icon_;
}

EventTableViewCellBackground EventTableViewCell::background() const {
    const Lock lock(mutex_);
    return background_;
}

}  // namespace dayward

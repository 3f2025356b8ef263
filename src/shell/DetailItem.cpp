#include "shell/DetailItem.h"

#include "shell/QtValues.h"

namespace dayward {

DetailItem::DetailItem(std::shared_ptr<EventDetailViewController> detail, Pictures& pictures, QObject* parent)
    : ScreenItem(detail, pictures, parent), detail_(std::move(detail)), pictures_(pictures) {
    detail_->setDetailObserver(this);
}

DetailItem::~DetailItem() { detail_->removeDetailObserver(this); }

DetailLook DetailItem::look() const { return hasEvent() ? DetailLook(detail_->eventView(), pictures_) : DetailLook(); }

QString DetailItem::shareTitle() { return qtText(HHShareToolbar::title()); }

QString DetailItem::shareTextTitle() { return qtText(HHShareToolbar::textTitle()); }

QString DetailItem::shareImageTitle() { return qtText(HHShareToolbar::imageTitle()); }

void DetailItem::shareText() {
    if (const HHShareToolbar* toolbar = detail_->shareToolbar()) toolbar->textAction();
}

void DetailItem::shareImage() {
    if (const HHShareToolbar* toolbar = detail_->shareToolbar()) toolbar->imageAction();
}

}  // namespace dayward

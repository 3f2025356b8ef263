#include "Classes/Category/EventCategory.h"

#include "Classes/Category/BackgroundTemplateConversion.h"
#include "Classes/Category/HHAppImage.h"
#include "platform/KeyedArchiver.h"
#include "platform/KeyedUnarchiver.h"
#include "platform/UUID.h"

namespace dayward {
namespace {

std::shared_ptr<EventIconPicture> iconFromObject(const Object& object) {
    if (auto icon = object.as<EventIconPicture>()) return icon;
    const auto older = object.as<HHAppImage>();
    return older ? older->updatedPicture() : nullptr;
}

}  // namespace

EventCategory::EventCategory() : key(newUUIDString()) {}

void EventCategory::encodeWithCoder(KeyedArchiver& coder) const {
    coder.encodeObject(key, kKeyKey);
    coder.encodeObject(name, kNameKey);
    coder.encodeObject(eventIcon, kEventIconKey);
    coder.encodeObject(eventBackgroundTpl, kEventBackgroundTplKey);
    coder.encodeObject(eventFont, kEventFontKey);
    coder.encodeObject(colorObject(eventTextColor), kEventTextColorKey);
}

bool EventCategory::isEqual(const Archivable& other) const {
    const auto* category = dynamic_cast<const EventCategory*>(&other);
    return category && *this == *category;
}

std::shared_ptr<Archivable> EventCategory::read(KeyedUnarchiver& coder) {
    auto category = std::make_shared<EventCategory>();
    if (auto key = coder.decodeString(kKeyKey)) category->key = *std::move(key);
    category->name = coder.decodeString(kNameKey);
    category->eventIcon = iconFromObject(coder.decodeObject(kEventIconKey));
    category->eventBackgroundTpl = backgroundTemplateFromObject(coder.decodeObject(kEventBackgroundTplKey));
    category->eventFont = coder.decodeString(kEventFontKey);
    category->eventTextColor = colorOf(coder.decodeObject(kEventTextColorKey));
    return category;
}

}  // namespace dayward

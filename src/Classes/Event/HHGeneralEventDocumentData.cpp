#include "Classes/Event/HHGeneralEventDocumentData.h"

#include "platform/Environment.h"
#include "platform/KeyedArchiver.h"

namespace dayward {
namespace {

template <class T>
std::shared_ptr<T> boxed(const T& value) {
    return std::make_shared<T>(value);
}

Object arrayOf(const std::vector<std::int64_t>& times) {
    Array array;
    for (const auto minutes : times) array.emplace_back(minutes);
    return array;
}

}  // namespace

HHGeneralEventDocumentData::HHGeneralEventDocumentData() : date(Environment::current().now()) {}

void HHGeneralEventDocumentData::encodeWithCoder(KeyedArchiver& coder) const {
    coder.encodeInteger(type, kTypeKey);
    coder.encodeObject(sourceInfo, kSourceInfoKey);
    coder.encodeObject(name, kNameKey);
    coder.encodeObject(categoryKey, kCategoryKey);
    coder.encodeObject(date, kDateKey);
    coder.encodeObject(arrayOf(times), kTimesKey);
    coder.encodeObject(duration ? Object(boxed(*duration)) : Object(), kDurationKey);
    coder.encodeObject(rrule, kRRuleKey);
    coder.encodeBool(showAge, kShowAgeKey);
    coder.encodeObject(boxed(intervalFormat), kIntervalFormatKey);
    coder.encodeObject(boxed(alerts), kAlertsKey);
    coder.encodeObject(boxed(appearance), kAppearanceKey);
    coder.encodeObject(note, kNoteKey);
    coder.encodeObject(icon_named, kIconNamedKey);
    coder.encodeObject(background_named, kBackgroundNamedKey);
    coder.encodeObject(colorObject(background_color), kBackgroundColorKey);
    coder.encodeObject(icon, kIconKey);
    coder.encodeBool(icon_is_null, kIconIsNullKey);
    coder.encodeObject(background, kBackgroundKey);
    coder.encodeObject(randomBackground, kRandomBackgroundKey);
    coder.encodeBool(background_is_null, kBackgroundIsNullKey);
    coder.encodeObject(boxed(syncVersion), kSyncVersionKey);
}

}  // namespace dayward

#include "Classes/Event/HHGeneralEventDocumentData.h"

#include "platform/Environment.h"
#include "platform/KeyedArchiver.h"

namespace dayward {

HHGeneralEventDocumentData::HHGeneralEventDocumentData() : date(Environment::current().now()) {}

void HHGeneralEventDocumentData::encodeWithCoder(KeyedArchiver& coder) const {
    coder.encodeInteger(type, kTypeKey);
    coder.encodeObject(sourceInfo, kSourceInfoKey);
    coder.encodeString(name, kNameKey);
    coder.encodeString(categoryKey, kCategoryKey);
    coder.encodeDate(date, kDateKey);
    coder.encodeIntegers(times, kTimesKey);
    coder.encodeRecord(duration ? &*duration : nullptr, kDurationKey);
    coder.encodeString(rrule, kRRuleKey);
    coder.encodeBool(showAge, kShowAgeKey);
    coder.encodeRecord(&intervalFormat, kIntervalFormatKey);
    coder.encodeRecord(&alerts, kAlertsKey);
    coder.encodeRecord(&appearance, kAppearanceKey);
    coder.encodeString(note, kNoteKey);
    coder.encodeString(icon_named, kIconNamedKey);
    coder.encodeString(background_named, kBackgroundNamedKey);
    coder.encodeObject(colorObject(background_color), kBackgroundColorKey);
    coder.encodeObject(icon, kIconKey);
    coder.encodeBool(icon_is_null, kIconIsNullKey);
    coder.encodeObject(background, kBackgroundKey);
    coder.encodeObject(randomBackground, kRandomBackgroundKey);
    coder.encodeBool(background_is_null, kBackgroundIsNullKey);
    coder.encodeRecord(&syncVersion, kSyncVersionKey);
}

}  // namespace dayward

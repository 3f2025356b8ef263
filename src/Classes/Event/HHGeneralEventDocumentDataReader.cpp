// Reading of HHGeneralEventDocumentData, its older shapes included.
#include <cmath>

#include "Classes/Category/CategoryLocalStore.h"
#include "Classes/Event/HHGeneralEventDocumentData.h"
#include "platform/KeyedUnarchiver.h"
#include "platform/Strings.h"
#include "recurrence/XELCalendarBase.h"
#include "recurrence/XELUpdater.h"

namespace dayward {
namespace {

/// The category that a type of older versions stood for; null for a type that is none.
const char* categoryNameOfType(std::int64_t type) {
    switch (type) {
        case 1: return "Birthday";
        case 2: return "Other";
        case 3: return "Birthday";
        case 4: return "Anniversary";
        case 5: return "Holiday";
        default: return nullptr;
    }
}

/// An archive may hold any number; a date that is none cannot be worked with.
std::optional<Date> usableDate(std::optional<Date> date) {
    return date && std::isfinite(date->secondsSinceReference()) ? date : std::nullopt;
}

/// Empty unless the object is an array of numbers.
std::vector<std::int64_t> timesOf(const Object& object) {
    std::vector<std::int64_t> times;
    if (const auto* array = object.array()) {
        for (const auto& item : *array) {
            const auto minutes = item.integer();
            if (!minutes) return {};
            times.push_back(*minutes);
        }
    }
    return times;
}

/// The value of a key, its default where the archive has none.
template <class T>
T valueOr(const std::shared_ptr<T>& record, T otherwise) {
    return record ? *record : std::move(otherwise);
}

}  // namespace

// Keys are asked for in the order of the archive, in which the next one is found at once.
std::shared_ptr<Archivable> HHGeneralEventDocumentData::read(KeyedUnarchiver& coder) {
    auto data = std::make_shared<HHGeneralEventDocumentData>();
    data->type = coder.decodeInteger(kTypeKey).value_or(0);
    data->sourceInfo = coder.decodeObject(kSourceInfoKey);
    data->name = coder.decodeString(kNameKey);
    data->readCategory(coder);
    data->readDates(coder);
    data->showAge = coder.decodeBool(kShowAgeKey).value_or(false);
    data->intervalFormat = valueOr(coder.decodeRecord<HHEventDateFormat>(kIntervalFormatKey), HHEventDateFormat());
    data->alerts = valueOr(coder.decodeRecord<HHEventAlerts>(kAlertsKey), HHEventAlerts());
    data->appearance = valueOr(coder.decodeRecord<HHEventAppearance>(kAppearanceKey), HHEventAppearance());
    data->note = coder.decodeString(kNoteKey);
    data->readPictures(coder);
    data->syncVersion = valueOr(coder.decodeRecord<CCSyncItemVersion>(kSyncVersionKey), CCSyncItemVersion::zero());
    return data;
}

void HHGeneralEventDocumentData::readCategory(KeyedUnarchiver& coder) {
    categoryKey = coder.decodeString(kCategoryKey);
    if (!categoryKey && categoryNameOfType(type) == nullptr) categoryKey = CategoryLocalStore::kDefaultCategoryKey;
}

std::optional<std::string> HHGeneralEventDocumentData::categoryNameOfOlderType() const {
    const char* const oldName = categoryNameOfType(type);
    return oldName != nullptr && !categoryKey ? std::optional(localized(oldName)) : std::nullopt;
}

void HHGeneralEventDocumentData::readDates(KeyedUnarchiver& coder) {
    const auto storedDate = usableDate(coder.decodeDate(kDateKey));
    auto storedTimes = timesOf(coder.decodeObject(kTimesKey));
    if (const auto stored = coder.decodeRecord<XDIDateInterval>(kDurationKey)) duration = *stored;
    auto storedRule = coder.decodeString(kRRuleKey);
    if (storedDate || storedRule) {
        if (storedDate) date = *storedDate;
        times = std::move(storedTimes);
        rrule = std::move(storedRule);
    } else if (const auto calendar = coder.decodeRecord<XELCalendarBase>(kCalendarKey)) {
        if (const auto start = usableDate(calendar->date())) date = *start;
        times = calendar->times();
        rrule = XELUpdater::rruleFromCalendar(calendar.get());
    }
    if (times.empty()) times.push_back(0);
}

void HHGeneralEventDocumentData::readPictures(KeyedUnarchiver& coder) {
    icon_named = coder.decodeString(kIconNamedKey);
    background_named = coder.decodeString(kBackgroundNamedKey);
    background_color = colorOf(coder.decodeObject(kBackgroundColorKey));
    icon = coder.decodeRecord<EventIconPicture>(kIconKey);
    icon_is_null = coder.decodeBool(kIconIsNullKey).value_or(false);
    background = coder.decodeRecord<EventBackgroundPicture>(kBackgroundKey);
    randomBackground = coder.decodeRecord<EventBackgroundPicture>(kRandomBackgroundKey);
    background_is_null = coder.decodeBool(kBackgroundIsNullKey).value_or(false);
}

}  // namespace dayward

// HHEvent's conversion to and from its document's data, and its own archive.
#include "Classes/Category/CategoryLocalStore.h"
#include "Classes/Category/ColorEventBackgroundPicture.h"
#include "Classes/Category/EventCategory.h"
#include "Classes/Category/ImageEventBackgroundPicture.h"
#include "Classes/Category/ImageEventIconPicture.h"
#include "Classes/Category/NamedEventBackgroundPicture.h"
#include "Classes/Category/NamedEventIconPicture.h"
#include "Classes/Event/HHEvent.h"
#include "Classes/Event/HHGeneralEventDocumentData.h"
#include "Classes/Event/LoadEventBackgroundPicture.h"
#include "Classes/Event/LoadEventIconPicture.h"
#include "platform/KeyedArchiver.h"
#include "platform/KeyedUnarchiver.h"
#include "resources/HHResources.h"

namespace dayward {
namespace {

using Icon = std::shared_ptr<EventIconPicture>;
using Background = std::shared_ptr<EventBackgroundPicture>;

template <class... Kinds, class Picture>
bool isAnyOf(const std::shared_ptr<Picture>& picture) {
    return ((std::dynamic_pointer_cast<Kinds>(picture) != nullptr) || ...);
}

/// The backgrounds that lie in the document's archive; the others have a file of their own.
Background storedInArchive(const Background& background) {
    return isAnyOf<NamedEventBackgroundPicture, ColorEventBackgroundPicture>(background) ? background : nullptr;
}

/// Whether an older record's resource name still names one. Absolute paths of old versions never do.
bool namesResource(const std::optional<std::string>& name) {
    return name && !name->starts_with('/') && HHResources::pathForFileName(*name);
}

Icon iconOfData(const HHGeneralEventDocumentData& data, const std::string& itemKey) {
    if (data.icon) return data.icon;
    if (data.icon_is_null) return nullptr;
    if (namesResource(data.icon_named)) return std::make_shared<NamedEventIconPicture>(*data.icon_named);
    return std::make_shared<LoadEventIconPicture>(itemKey);
}

Background backgroundOfData(const HHGeneralEventDocumentData& data, const std::string& itemKey) {
    if (data.background) return data.background;
    if (data.background_is_null) return nullptr;
    if (namesResource(data.background_named)) {
        return std::make_shared<NamedEventBackgroundPicture>(*data.background_named);
    }
    if (data.background_color) return std::make_shared<ColorEventBackgroundPicture>(*data.background_color);
    return std::make_shared<LoadEventBackgroundPicture>(itemKey);
}

/// The picture as an archive without a document can hold it.
template <class Loading, class WithImage, class Picture>
std::shared_ptr<Picture> selfContained(const std::shared_ptr<Picture>& picture) {
    if (!isAnyOf<Loading>(picture)) return picture;
    auto image = picture->getImage();
    return image->isEmpty() ? nullptr : std::make_shared<WithImage>(std::move(image));
}

}  // namespace

std::shared_ptr<HHGeneralEventDocumentData> HHEvent::getStoreInfo() const {
    auto data = std::make_shared<HHGeneralEventDocumentData>();
    data->sourceInfo = sourceInfo();
    data->name = name_;
    data->categoryKey = categoryKey();
    data->date = date_;
    data->times = times_;
    data->rrule = rrule();
    data->duration = duration_;
    data->showAge = showAge_;
    data->intervalFormat = intervalFormat_;
    data->alerts = alerts_;
    data->appearance = appearance_;
    data->note = note_;
    data->icon_is_null = !icon_;
    if (isAnyOf<NamedEventIconPicture>(icon_)) data->icon = icon_;
    data->background_is_null = !background_;
    data->background = storedInArchive(background_);
    data->randomBackground = storedInArchive(randomBackground_);
    if (version_) data->syncVersion = *version_;
    return data;
}

void HHEvent::fillStoreInfo(HHGeneralEventDocumentData data) {
    if (const auto name = data.categoryNameOfOlderType()) {
        auto& categories = CategoryLocalStore::shared();
        data.categoryKey = categories.categoryWithName(*name, CategoryLocalStore::Initialize::yes)->key;
    }
    icon_ = iconOfData(data, identifier_);
    background_ = backgroundOfData(data, identifier_);
    setSourceInfo(std::move(data.sourceInfo));
    name_ = std::move(data.name);
    categoryKey_ = std::move(data.categoryKey);
    date_ = data.date;
    times_ = std::move(data.times);
    rrule_ = std::move(data.rrule);
    duration_ = data.duration;
    showAge_ = data.showAge;
    intervalFormat_ = data.intervalFormat;
    alerts_ = std::move(data.alerts);
    appearance_ = std::move(data.appearance);
    note_ = std::move(data.note);
    randomBackground_ = std::move(data.randomBackground);
    version_ = data.syncVersion;
    moduleEventDateRefresh();
}

void HHEvent::encodeWithCoder(KeyedArchiver& coder) const {
    coder.encodeObject(identifier_, kIdentifierKey);
    coder.encodeObject(getStoreInfo(), kGeneralDataKey);
    coder.encodeObject(selfContained<LoadEventIconPicture, ImageEventIconPicture>(icon_), kIconKey);
    coder.encodeObject(selfContained<LoadEventBackgroundPicture, ImageEventBackgroundPicture>(background_),
                       kBackgroundKey);
}

std::shared_ptr<Archivable> HHEvent::read(KeyedUnarchiver& coder) {
    auto identifier = coder.decodeString(kIdentifierKey);
    auto event = identifier ? std::make_shared<HHEvent>(*std::move(identifier)) : std::make_shared<HHEvent>();
    const auto stored = coder.decodeRecord<HHGeneralEventDocumentData>(kGeneralDataKey);
    auto data = stored ? *stored : HHGeneralEventDocumentData();
    // Unlike a document, an event in an archive is never older than categories; and reading asks no store.
    if (data.categoryNameOfOlderType()) data.categoryKey = CategoryLocalStore::kDefaultCategoryKey;
    event->fillStoreInfo(std::move(data));
    if (auto icon = coder.decodeRecord<EventIconPicture>(kIconKey)) event->icon_ = std::move(icon);
    if (auto background = coder.decodeRecord<EventBackgroundPicture>(kBackgroundKey)) {
        event->background_ = std::move(background);
    }
    return event;
}

void registerEventClasses(ArchiveClasses& classes) {
    classes.add(HHEvent::kArchiveClass, &HHEvent::read);
    classes.add(HHGeneralEventDocumentData::kArchiveClass, &HHGeneralEventDocumentData::read);
    classes.add(HHEventAlerts::kArchiveClass, &HHEventAlerts::read);
    classes.add(HHEventAppearance::kArchiveClass, &HHEventAppearance::read);
}

}  // namespace dayward

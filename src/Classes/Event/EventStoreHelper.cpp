#include "Classes/Event/EventStoreHelper.h"

#include "Classes/Category/ImageEventBackgroundPicture.h"
#include "Classes/Category/ImageEventIconPicture.h"
#include "Classes/Event/HHGeneralEventDocumentData.h"
#include "Classes/Event/LoadEventBackgroundPicture.h"
#include "Classes/Event/LoadEventIconPicture.h"
#include "platform/Environment.h"
#include "platform/FatalError.h"
#include "platform/FileSystem.h"
#include "platform/KeyedArchiver.h"
#include "platform/KeyedUnarchiver.h"

namespace dayward {
namespace {

std::unexpected<Error> noData(const std::string& path, std::string reason) {
    return failure(EventStoreHelper::kNoDataDomain, 0,
                   {{"file", lastPathComponent(path)}, {"path", path}, {"reason", std::move(reason)}});
}

Result<std::shared_ptr<const Image>> readImage(const std::string& path, const char* file) {
    const auto bytes = TRY(Environment::current().files().readFile(joinPath(path, file)));
    return std::make_shared<const Image>(TRY(Image::decode(bytes)));
}

Result<> setFile(EventDocument& document, const Data& bytes, const char* file) {
    document.setData(bytes, file);
    return {};
}

/// Only freshly chosen images are written, as they came where that is known: those that lie in the
/// document already stay as they are.
Result<> setOwnImages(EventDocument& document, const HHEvent& event) {
    if (const auto icon = std::dynamic_pointer_cast<ImageEventIconPicture>(event.icon())) {
        TRY_VOID(icon->encoded().empty() ? document.setImagePNG(*icon->image(), EventDocument::kIconFile)
                                         : setFile(document, icon->encoded(), EventDocument::kIconFile));
    }
    if (const auto background = std::dynamic_pointer_cast<ImageEventBackgroundPicture>(event.background())) {
        TRY_VOID(background->encoded().empty()
                     ? document.setImageJPEG(*background->image(), EventDocument::kBackgroundQuality,
                                             EventDocument::kBackgroundFile)
                     : setFile(document, background->encoded(), EventDocument::kBackgroundFile));
    }
    return {};
}

}  // namespace

std::string EventStoreHelper::itemKeyForFileURL(std::string_view path) {
    while (path.ends_with('/')) path.remove_suffix(1);
    const std::string_view name = path.substr(path.rfind('/') + 1);
    const auto point = name.rfind('.');
    const bool hasExtension = point != name.npos && point != 0 && point + 1 < name.size();
    return std::string(hasExtension ? name.substr(0, point) : name);
}

Result<std::shared_ptr<HHEvent>> EventStoreHelper::eventFromGeneralData(const Data& general, const std::string& path) {
    const FatalErrorContext blame(path);
    const auto root = KeyedUnarchiver::unarchiveObjectWithData(general);
    if (!root) return noData(path, root.error().description());
    const auto data = root->as<HHGeneralEventDocumentData>();
    if (!data) return noData(path, "the archive holds no event");
    auto event = std::make_shared<HHEvent>(itemKeyForFileURL(path));
    event->fillStoreInfo(std::move(*data));
    return event;
}

void EventStoreHelper::forgetImages(const std::string& path) {
    const auto key = itemKeyForFileURL(path);
    LoadEventIconPicture::forgetImage(key);
    LoadEventBackgroundPicture::forgetImage(key);
}

Result<std::shared_ptr<HHEvent>> EventStoreHelper::readEvent(const std::string& path) {
    auto& files = Environment::current().files();
    // The archive's bytes are asked for first: in a store of many packages nearly all are sound, and
    // a look at each directory would double the cost.
    const auto general = files.readFile(joinPath(path, EventDocument::kGeneralFile));
    if (general) {
        forgetImages(path);
        return eventFromGeneralData(*general, path);
    }
    if (files.exists(path)) TRY_VOID(EventDocument(path).readFromURL(path));
    return noData(path, general.error().description());
}

Result<std::vector<PackageFile>> EventStoreHelper::packageOfEvent(const HHEvent& event, const std::string& path) {
    // Its pictures may stand aside.
    TRY_VOID(settlePackage(Environment::current().files(), path));
    auto document = TRY(readEventDocument(path));
    document.setData(KeyedArchiver::archivedDataWithRootObject(event.getStoreInfo()), EventDocument::kGeneralFile);
    TRY_VOID(setOwnImages(document, event));
    return document.packageFiles();
}

Result<> EventStoreHelper::writeEvent(const HHEvent& event, const std::string& path) {
    const auto content = TRY(packageOfEvent(event, path));
    TRY_VOID(writePackageAtomically(Environment::current().files(), path, content));
    forgetImages(path);
    return {};
}

Result<EventDocument> EventStoreHelper::readEventDocument(const std::string& path) {
    EventDocument document(path);
    // What cannot be told must not pass for nothing: the package would be replaced without its pictures.
    if (TRY(Environment::current().files().status(path))) TRY_VOID(document.readFromURL(path));
    return document;
}

Result<> EventStoreHelper::writeEventDocument(const EventDocument& document, const std::string& path) {
    TRY_VOID(document.writeToURL(path));
    forgetImages(path);
    return {};
}

Result<std::shared_ptr<HHEvent>> EventStoreHelper::getEventFromDocument(const EventDocument& document) {
    const Data* general = document.dataForKey(EventDocument::kGeneralFile);
    if (!general) return noData(document.fileURL(), "no file general.t");
    return eventFromGeneralData(*general, document.fileURL());
}

Result<std::shared_ptr<const Image>> EventStoreHelper::readIconImage(const std::string& path) {
    return readImage(path, EventDocument::kIconFile);
}

Result<std::shared_ptr<const Image>> EventStoreHelper::readBackgroundImage(const std::string& path) {
    return readImage(path, EventDocument::kBackgroundFile);
}

}  // namespace dayward

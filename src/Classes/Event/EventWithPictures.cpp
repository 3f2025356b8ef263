#include "Classes/Event/EventWithPictures.h"

#include <utility>

#include "Classes/Category/ImageEventBackgroundPicture.h"
#include "Classes/Category/ImageEventIconPicture.h"
#include "Classes/Event/EventDocument.h"
#include "Classes/Event/EventLocalStore.h"
#include "Classes/Event/HHEvent.h"
#include "Classes/Event/LoadEventBackgroundPicture.h"
#include "Classes/Event/LoadEventIconPicture.h"
#include "platform/Environment.h"
#include "platform/FileCoordinator.h"
#include "platform/FileSystem.h"
#include "platform/Log.h"

namespace dayward {

namespace {

Result<Data> readPackageFile(const std::string& key, const char* file) {
    Environment& environment = Environment::current();
    EventLocalStore& store = EventLocalStore::shared();
    const std::string package = TRY(store.URLForKey(store, key));
    Data bytes;
    const auto read = [&](const std::string& path) -> Result<> {
        bytes = TRY(environment.files().readFile(joinPath(path, file)));
        return {};
    };
    TRY_VOID(
        environment.coordinator().coordinateReading(package, FileCoordinator::ReadingOptions::withoutChanges, read));
    return bytes;
}

template <class WithImage>
Result<std::shared_ptr<WithImage>> readPicture(const std::string& key, const char* file) {
    Data bytes = TRY(readPackageFile(key, file));
    auto image = std::make_shared<const Image>(TRY(Image::decode(bytes)));
    return std::make_shared<WithImage>(std::move(image), std::nullopt, std::move(bytes));
}

/// The picture read from the package where it lies there; null where it cannot be read.
template <class Loading, class WithImage, class Picture>
std::shared_ptr<Picture> ownPicture(const std::shared_ptr<Picture>& picture, const std::string& key, const char* file) {
    if (!std::dynamic_pointer_cast<Loading>(picture)) return picture;
    auto read = readPicture<WithImage>(key, file);
    if (read) return *std::move(read);
    logError("the picture of a removed event is lost: " + read.error().description());
    return nullptr;
}

}  // namespace

std::shared_ptr<HHEvent> copyWithPictures(const HHEvent& event) {
    auto copy = std::make_shared<HHEvent>(event);
    const std::string& key = event.identifier();
    copy->setIcon(ownPicture<LoadEventIconPicture, ImageEventIconPicture>(event.icon(), key, EventDocument::kIconFile));
    copy->setBackground(ownPicture<LoadEventBackgroundPicture, ImageEventBackgroundPicture>(
        event.background(), key, EventDocument::kBackgroundFile));
    return copy;
}

}  // namespace dayward

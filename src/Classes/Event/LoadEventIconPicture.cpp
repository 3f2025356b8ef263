#include "Classes/Event/LoadEventIconPicture.h"

#include "Classes/Event/DocumentImages.h"
#include "Classes/Event/EventLocalStore.h"
#include "platform/DispatchQueue.h"

namespace dayward {
namespace {

std::string cacheKey(std::string_view itemKey) { return "icon_" + std::string(itemKey); }

}  // namespace

std::shared_ptr<const Image> LoadEventIconPicture::getImage() const {
    // Made first: a store that loads its events meanwhile would make the image look outdated.
    auto& store = EventLocalStore::shared();
    return DocumentImages::image(cacheKey(itemKey_), [&] { return store.loadIconImageAtEvent(itemKey_); });
}

void LoadEventIconPicture::getImageWithCompletion(const ImageCompletion& completion) const {
    if (auto cached = DocumentImages::cachedImage(cacheKey(itemKey_))) return completion(std::move(cached));
    Environment::current().queues().global().async([picture = LoadEventIconPicture(itemKey_), completion] {
        auto image = picture.getImage();
        Environment::current().queues().main().async([image, completion] { completion(image); });
    });
}

void LoadEventIconPicture::forgetImage(std::string_view itemKey) { DocumentImages::forget(cacheKey(itemKey)); }

bool LoadEventIconPicture::isEqual(const Archivable& other) const {
    const auto* picture = dynamic_cast<const LoadEventIconPicture*>(&other);
    return picture && itemKey_ == picture->itemKey_;
}

}  // namespace dayward

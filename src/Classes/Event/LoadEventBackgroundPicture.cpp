#include "Classes/Event/LoadEventBackgroundPicture.h"

#include "Classes/Event/DocumentImages.h"
#include "Classes/Event/EventLocalStore.h"

namespace dayward {
namespace {

std::string cacheKey(std::string_view itemKey) { return "bg_" + std::string(itemKey); }

}  // namespace

std::shared_ptr<const Image> LoadEventBackgroundPicture::getImage() const {
    // Made first: a store that loads its events meanwhile would make the image look outdated.
    auto& store = EventLocalStore::shared();
    return DocumentImages::image(cacheKey(itemKey_), [&] { return store.loadBackgroundImageAtEvent(itemKey_); });
}

void LoadEventBackgroundPicture::forgetImage(std::string_view itemKey) { DocumentImages::forget(cacheKey(itemKey)); }

bool LoadEventBackgroundPicture::isEqual(const Archivable& other) const {
    const auto* picture = dynamic_cast<const LoadEventBackgroundPicture*>(&other);
    return picture && itemKey_ == picture->itemKey_;
}

}  // namespace dayward

#include "resources/ImageCache.h"

namespace dayward {

std::shared_ptr<const Image> ImageCache::image(std::string_view forKey) {
    const Lock lock(mutex_);
    const auto found = entries_.find(forKey);
    if (found == entries_.end()) return nullptr;
    order_.splice(order_.begin(), order_, found->second);
    return found->second->second;
}

void ImageCache::setImage(std::shared_ptr<const Image> image, std::string_view forKey) {
    const Lock lock(mutex_);
    if (const auto found = entries_.find(forKey); found != entries_.end()) remove(found->second);
    const std::size_t bytes = image->rgba().size();
    if (bytes > capacity_) return;
    order_.emplace_front(std::string(forKey), std::move(image));
    entries_.emplace(order_.front().first, order_.begin());
    size_ += bytes;
    while (size_ > capacity_) remove(std::prev(order_.end()));
}

void ImageCache::removeImage(std::string_view forKey) {
    const Lock lock(mutex_);
    if (const auto found = entries_.find(forKey); found != entries_.end()) remove(found->second);
}

void ImageCache::removeAll() {
    const Lock lock(mutex_);
    entries_.clear();
    order_.clear();
    size_ = 0;
}

void ImageCache::remove(Order::iterator entry) {
    size_ -= entry->second->rgba().size();
    entries_.erase(entry->first);
    order_.erase(entry);
}

}  // namespace dayward

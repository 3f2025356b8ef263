// Decoded pictures by key, least recently used first out beyond a bound of bytes. Any thread.
#pragma once

#include <cstddef>
#include <list>
#include <map>
#include <memory>
#include <string>
#include <string_view>
#include <utility>

#include "platform/Image.h"
#include "platform/Mutex.h"

namespace dayward {

class ImageCache {
public:
    static constexpr std::size_t kDefaultCapacity = 64UL * 1024 * 1024;

    /// `capacity` in bytes of pixels. A picture larger than it is not kept.
    explicit ImageCache(std::size_t capacity = kDefaultCapacity) : capacity_(capacity) {}

    /// Null where the key is not held.
    [[nodiscard]] std::shared_ptr<const Image> image(std::string_view forKey);
    void setImage(std::shared_ptr<const Image> image, std::string_view forKey);
    void removeImage(std::string_view forKey);
    void removeAll();

private:
    using Entry = std::pair<std::string, std::shared_ptr<const Image>>;
    using Order = std::list<Entry>;

    void remove(Order::iterator entry) DAYWARD_REQUIRES(mutex_);

    const std::size_t capacity_;
    Mutex mutex_;
    Order order_ DAYWARD_GUARDED_BY(mutex_);  ///< most recently used first
    std::map<std::string, Order::iterator, std::less<>> entries_ DAYWARD_GUARDED_BY(mutex_);
    std::size_t size_ DAYWARD_GUARDED_BY(mutex_) = 0;
};

}  // namespace dayward

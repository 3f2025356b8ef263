#include "Classes/Event/DocumentImages.h"

#include <atomic>
#include <cstdint>

#include "platform/Environment.h"
#include "resources/ImageCache.h"

namespace dayward {
namespace {

struct Cache {
    explicit Cache(Environment&) {}
    static Cache& shared() { return Environment::current().shared<Cache>(); }

    ImageCache images;
    /// Counts what was forgotten, so that an image read before a change is not kept after it.
    std::atomic<std::uint64_t> generation = 0;
};

}  // namespace

std::shared_ptr<const Image> DocumentImages::image(const std::string& key, const Load& load) {
    auto& cache = Cache::shared();
    if (auto cached = cache.images.image(key)) return cached;
    const auto generation = cache.generation.load();
    auto image = load();
    if (!image) return std::make_shared<const Image>();
    if (generation == cache.generation.load()) cache.images.setImage(image, key);
    return image;
}

std::shared_ptr<const Image> DocumentImages::cachedImage(const std::string& key) {
    return Cache::shared().images.image(key);
}

void DocumentImages::forget(const std::string& key) {
    auto& cache = Cache::shared();
    ++cache.generation;
    cache.images.removeImage(key);
}

void DocumentImages::forgetAll() {
    auto& cache = Cache::shared();
    ++cache.generation;
    cache.images.removeAll();
}

}  // namespace dayward

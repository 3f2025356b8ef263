#include "Classes/Interface/List/EventTableViewHelper.h"

#include <optional>
#include <string>
#include <unordered_map>
#include <utility>

#include "Classes/Category/EventBackgroundPicture.h"
#include "Classes/Event/HHEvent.h"
#include "Classes/Interface/General/EventPictures.h"
#include "Classes/Interface/General/TextScrim.h"
#include "platform/DispatchQueue.h"
#include "platform/Environment.h"
#include "platform/ImageImport.h"
#include "platform/Mutex.h"
#include "resources/ImageCache.h"

namespace dayward {

namespace {

/// The pictures that were made, and the scrims that were measured on them.
class CellImages {
public:
    explicit CellImages(Environment&) {}
    static CellImages& shared() { return Environment::current().shared<CellImages>(); }

    /// Nothing unless picture and scrim are at hand.
    std::optional<EventTableViewCellBackground> background(const std::string& key, const Color& text) {
        auto image = images_.image(key);
        const Lock lock(mutex_);
        const auto scrim = scrims_.find(key + text.hex());
        if (!image || scrim == scrims_.end()) return std::nullopt;
        return EventTableViewCellBackground{std::move(image), scrim->second};
    }
    /// Makes what is missing; may take long.
    EventTableViewCellBackground make(const std::string& key, const Color& text, const EventBackgroundPicture& picture,
                                      PixelSize size) {
        auto image = images_.image(key);
        if (!image) {
            image = EventTableViewHelper::createBackgroundImageCellForPicture(picture, size);
            if (!image->isEmpty()) images_.setImage(image, key);
        }
        const Color scrim = textScrim(text, *image);
        const Lock lock(mutex_);
        if (scrims_.size() >= kMostScrims) scrims_.clear();
        scrims_.insert_or_assign(key + text.hex(), scrim);
        return {std::move(image), scrim};
    }

private:
    static constexpr std::size_t kMostScrims = 4096;

    ImageCache images_;
    Mutex mutex_;
    std::unordered_map<std::string, Color> scrims_ DAYWARD_GUARDED_BY(mutex_);
};

/// What shows through a transparent picture is what its scrim is measured on.
Image onWhite(Image image) {
    Data pixels = image.rgba();
    for (std::size_t at = 0; at + 3 < pixels.size(); at += 4) {
        const unsigned alpha = pixels[at + 3];
        for (std::size_t channel = at; channel < at + 3; ++channel) {
            pixels[channel] = static_cast<std::uint8_t>((pixels[channel] * alpha + 255 * (255 - alpha) + 127) / 255);
        }
        pixels[at + 3] = 255;
    }
    return {image.width(), image.height(), std::move(pixels)};
}

std::string cacheKey(const HHEvent& event, PixelSize size) {
    return eventBackground(event).key + "|" + std::to_string(size.width) + "x" + std::to_string(size.height);
}

}  // namespace

EventTableViewCellBackground EventTableViewHelper::backgroundViewCellForEvent(const HHEvent& event, PixelSize size) {
    const Color text = event.displayTextColor();
    auto kept = CellImages::shared().background(cacheKey(event, size), text);
    return kept ? *std::move(kept) : EventTableViewCellBackground{nullptr, textScrim(text)};
}

void EventTableViewHelper::getBackgroundImageCellForEvent(const HHEvent& event, PixelSize size,
                                                          std::weak_ptr<const void> wantedBy, Block inBlock) {
    const std::string key = cacheKey(event, size);
    const Color text = event.displayTextColor();
    CellImages& images = CellImages::shared();
    if (const auto kept = images.background(key, text)) return inBlock(*kept);
    Queues& queues = Environment::current().queues();
    queues.global().async([&queues, &images, key, text, size, picture = event.displayBackground(),
                           wantedBy = std::move(wantedBy), inBlock = std::move(inBlock)] {
        if (wantedBy.expired()) return;
        const auto background = images.make(key, text, *picture, size);
        queues.main().async([inBlock, wantedBy, background] {
            if (!wantedBy.expired()) inBlock(background);
        });
    });
}

std::shared_ptr<const Image> EventTableViewHelper::createBackgroundImageCellForPicture(
    const EventBackgroundPicture& picture, PixelSize size) {
    return std::make_shared<const Image>(onWhite(scaledToFill(*picture.getImageFilling(size), size)));
}

}  // namespace dayward

#include "Classes/Interface/List/EventTableViewHelper.h"

#include <string>
#include <utility>

#include "Classes/Category/EventBackgroundPicture.h"
#include "Classes/Event/HHEvent.h"
#include "Classes/Interface/General/TextScrim.h"
#include "Classes/Interface/List/EventRowContent.h"
#include "platform/DispatchQueue.h"
#include "platform/Environment.h"
#include "platform/ImageImport.h"
#include "resources/ImageCache.h"

namespace dayward {

namespace {

struct CellImages {
    explicit CellImages(Environment&) {}
    static ImageCache& cache() { return Environment::current().shared<CellImages>().images; }

    ImageCache images;
};

std::string cacheKey(const RowPicture& background, PixelSize size) {
    return background.key + "|" + std::to_string(size.width) + "x" + std::to_string(size.height);
}

}  // namespace

EventTableViewCellBackground EventTableViewHelper::backgroundViewCellForEvent(const HHEvent& event, PixelSize size) {
    const Color text = event.displayTextColor();
    auto image = CellImages::cache().image(cacheKey(eventBackground(event), size));
    const Color scrim = image ? textScrim(text, *image) : textScrim(text);
    return {std::move(image), scrim};
}

void EventTableViewHelper::getBackgroundImageCellForEvent(const HHEvent& event, PixelSize size,
                                                          std::weak_ptr<const void> wantedBy, Block inBlock) {
    const std::string key = cacheKey(eventBackground(event), size);
    const Color text = event.displayTextColor();
    if (auto image = CellImages::cache().image(key)) {
        const Color scrim = textScrim(text, *image);
        return inBlock({std::move(image), scrim});
    }
    Queues& queues = Environment::current().queues();
    queues.global().async([&queues, key, text, size, picture = event.displayBackground(), wantedBy = std::move(wantedBy),
                           inBlock = std::move(inBlock)] {
        if (wantedBy.expired()) return;
        auto image = CellImages::cache().image(key);  // another row may have had it made meanwhile
        if (!image) {
            image = createBackgroundImageCellForPicture(*picture, size);
            if (!image->isEmpty()) CellImages::cache().setImage(image, key);
        }
        const EventTableViewCellBackground background{image, textScrim(text, *image)};
        queues.main().async([inBlock, wantedBy, background] {
            if (!wantedBy.expired()) inBlock(background);
        });
    });
}

std::shared_ptr<const Image> EventTableViewHelper::createBackgroundImageCellForPicture(
    const EventBackgroundPicture& picture, PixelSize size) {
    return std::make_shared<const Image>(scaledToFill(*picture.getImage(), size));
}

}  // namespace dayward

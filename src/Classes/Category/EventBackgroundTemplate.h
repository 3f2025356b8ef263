// What a category's background can do: it makes the backgrounds of the category's events. Templates
// are immutable; any thread.
#pragma once

#include <memory>

#include "Classes/Category/EventBackgroundPicture.h"
#include "Classes/Category/ImageView.h"
#include "platform/Archivable.h"
#include "platform/Image.h"

namespace dayward {

class EventBackgroundTemplate : public virtual Archivable {
public:
    /// The background that an event shall get; a random template picks one at each call. Never null.
    [[nodiscard]] virtual std::shared_ptr<EventBackgroundPicture> getPicture() const = 0;
    /// A picture of the template itself; never null.
    [[nodiscard]] virtual std::shared_ptr<const Image> getImage() const = 0;
    /// Whether the event must keep what getPicture gave, because the next call gives another.
    [[nodiscard]] virtual bool isRandom() const { return false; }
    [[nodiscard]] ImageView getPreviewView() const { return {getImage()}; }
};

}  // namespace dayward

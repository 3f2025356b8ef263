// What an event's background can do. Pictures are immutable; any thread.
#pragma once

#include <memory>

#include "Classes/Category/ImageView.h"
#include "platform/Archivable.h"
#include "platform/Image.h"

namespace dayward {

class EventBackgroundPicture : public virtual Archivable {
public:
    /// Never null: the empty image where there is none.
    [[nodiscard]] virtual std::shared_ptr<const Image> getImage() const = 0;
    /// For a place of that size which it is to fill: maybe smaller than the whole, and read faster.
    [[nodiscard]] virtual std::shared_ptr<const Image> getImageFilling(PixelSize) const { return getImage(); }
    [[nodiscard]] ImageView getImageView() const { return {getImage()}; }
};

}  // namespace dayward

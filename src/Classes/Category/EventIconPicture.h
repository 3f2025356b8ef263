// What an event's icon can do. Pictures are immutable; any thread.
#pragma once

#include <functional>
#include <memory>

#include "Classes/Category/ImageView.h"
#include "platform/Archivable.h"
#include "platform/Image.h"

namespace dayward {

class EventIconPicture : public virtual Archivable {
public:
    using ImageCompletion = std::function<void(std::shared_ptr<const Image>)>;

    /// Never null: the empty image where there is none.
    [[nodiscard]] virtual std::shared_ptr<const Image> getImage() const = 0;
    /// Delivers the image: at once where it is at hand, otherwise on the main queue once it is read.
    virtual void getImageWithCompletion(const ImageCompletion& completion) const { completion(getImage()); }
    [[nodiscard]] ImageView getImageView() const { return {getImage()}; }
};

}  // namespace dayward

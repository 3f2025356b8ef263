// Chooses an icon from the gallery or a picture of the user's own. Main thread only.
#pragma once

#include <functional>
#include <memory>
#include <vector>

#include "Classes/Category/EventIconPicture.h"
#include "Classes/Interface/Select/PictureGalleryViewController.h"

namespace dayward {

class IconsViewController final : public PictureGalleryViewController {
public:
    using Icon = std::shared_ptr<EventIconPicture>;
    using Completion = std::function<void(const Icon&)>;

    /// `selected` may be null.
    IconsViewController(Icon selected, std::vector<GalleryChoice> choices, Completion completionBlock);

protected:
    std::vector<TableSection> galleries() override;
    void chooseImage(std::shared_ptr<const Image> image, const std::string& source) override;

private:
    [[nodiscard]] Cell cell(const Icon& icon, std::string label);

    Icon selected_;
    Completion completionBlock_;
};

}  // namespace dayward

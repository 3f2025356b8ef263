// Chooses a background: a colour, one of the gallery or a picture of the user's own. Main thread only.
#pragma once

#include <functional>
#include <memory>
#include <vector>

#include "Classes/Category/EventBackgroundPicture.h"
#include "Classes/Interface/Select/PictureGalleryViewController.h"

namespace dayward {

class BackgroundsViewController final : public PictureGalleryViewController {
public:
    using Background = std::shared_ptr<EventBackgroundPicture>;
    using Completion = std::function<void(const Background&)>;

    /// `selected` may be null.
    BackgroundsViewController(Background selected, std::vector<GalleryChoice> choices, Completion completionBlock);

protected:
    std::vector<TableSection> galleries() override;
    void chooseImage(std::shared_ptr<const Image> image, const std::string& source) override;

private:
    [[nodiscard]] Cell cell(const Background& background);
    [[nodiscard]] TableSection recentSection();
    [[nodiscard]] TableSection colorsSection();

    Background selected_;
    Completion completionBlock_;
};

}  // namespace dayward

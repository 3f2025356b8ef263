// The base of the galleries that take a picture of the user's own as well. Main thread only.
#pragma once

#include "Classes/Interface/Select/GalleryViewController.h"
#include "Classes/Interface/Select/OwnPicture.h"

namespace dayward {

class PictureGalleryViewController : public GalleryViewController, public PictureTarget {
public:
    void takePicture(ChosenPicture picture) override;

protected:
    PictureGalleryViewController(std::string title, std::vector<GalleryChoice> choices, int longestSide)
        : GalleryViewController(std::move(title), std::move(choices)), longestSide_(longestSide) {}

    /// The row that asks for a file; at rest while one is read.
    [[nodiscard]] TableSection ownPictureSection();
    virtual void chooseImage(std::shared_ptr<const Image> image, const std::string& source) = 0;

private:
    void didRead(std::shared_ptr<const Image> image, const std::string& source);

    const int longestSide_;
    bool isReading_ = false;
};

}  // namespace dayward

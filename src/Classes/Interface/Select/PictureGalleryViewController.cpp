#include "Classes/Interface/Select/PictureGalleryViewController.h"

#include "platform/Strings.h"

namespace dayward {

TableSection PictureGalleryViewController::ownPictureSection() {
    const std::weak_ptr<ViewController> self = weak_from_this();
    TableRow row = actionRow("ownPicture", localized("Choose a picture…"), [this, self] {
        presenter().choosePicture([this, self](ChosenPicture picture) {
            if (const auto held = self.lock()) takePicture(std::move(picture));
        });
    });
    row.enabled = !isReading_;
    return {"own", {}, {}, {std::move(row)}};
}

void PictureGalleryViewController::takePicture(ChosenPicture picture) {
    if (isReading_ || !isPresented()) return;
    isReading_ = true;
    reloadData();
    const std::weak_ptr<ViewController> self = weak_from_this();
    readOwnPicture(std::move(picture), longestSide_, [this, self](auto image, const std::string& source) {
        if (const auto held = self.lock()) didRead(std::move(image), source);
    });
}

void PictureGalleryViewController::didRead(std::shared_ptr<const Image> image, const std::string& source) {
    isReading_ = false;
    reloadData();
    if (!isPresented()) return;
    if (image) {
        finish([&] { chooseImage(std::move(image), source); });
    } else {
        presenter().alert(unreadablePictureAlert(source));
    }
}

}  // namespace dayward

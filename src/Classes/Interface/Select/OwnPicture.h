// A picture of the user's own: chosen from a file or dropped on a screen, read off the main thread,
// turned upright and made as small as is needed.
#pragma once

#include <functional>
#include <memory>
#include <string>

#include "Classes/Interface/Screens/Presenter.h"
#include "platform/Image.h"

namespace dayward {

/// A screen that takes a picture which is dropped on it.
class PictureTarget {
public:
    virtual ~PictureTarget() = default;
    virtual void takePicture(ChosenPicture picture) = 0;
};

/// How many pixels the longer side of a kept picture has at most.
inline constexpr int kLongestIconSide = 512;
inline constexpr int kLongestBackgroundSide = 2048;

/// Reads the picture on the global queue and calls back on the main one; null where it cannot be read.
void readOwnPicture(ChosenPicture picture, int longestSide,
                    std::function<void(std::shared_ptr<const Image>, const std::string& source)> completion);
/// Tells the user that a picture cannot be read.
Alert unreadablePictureAlert(const std::string& source);

}  // namespace dayward

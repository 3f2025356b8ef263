// An event as a picture to share: its detail, drawn off screen.
#pragma once

#include <functional>
#include <memory>
#include <string>

#include "Classes/Interface/Detail/EventDetailView.h"
#include "Classes/Share/ShareServices.h"

namespace dayward {

class HHEvent;

/// The shapes of pictures for sharing.
enum class SharedPictureShape { phone, square };
PixelSize sharedPictureSize(SharedPictureShape shape);
double sharedPicturePixelsPerPoint(SharedPictureShape shape);
/// "Phone", "Square", localised.
std::string sharedPictureShapeLabel(SharedPictureShape shape);

class ImageActivitySource final : public std::enable_shared_from_this<ImageActivitySource> {
public:
    /// To be held by a shared pointer.
    explicit ImageActivitySource(std::shared_ptr<const HHEvent> event);

    [[nodiscard]] const std::shared_ptr<const HHEvent>& event() const { return event_; }
    /// Null until it is drawn, and where that failed.
    [[nodiscard]] const ShareServices::Picture& image() const { return image_; }

    /// "Countdown to NAME".
    [[nodiscard]] std::string subject() const;
    /// Draws the event as of now, once its background is measured, and keeps the picture. The completion
    /// is called on the main thread, unless getScreenshot is called again before. Main thread.
    void getScreenshot(SharedPictureShape shape, ShareServices& services, std::function<void()> completion);

private:
    void draw(const EventDetailView& view, SharedPictureShape shape, ShareServices& services,
              std::function<void()> completion);

    const std::shared_ptr<const HHEvent> event_;
    ShareServices::Picture image_;
    int request_ = 0;  ///< counts the calls of getScreenshot
};

}  // namespace dayward

// What sharing needs of its surroundings: the pasteboard, a place for a file, a mail, the desktop's other
// programs, and somebody who draws an event. The shell has the real one. Main thread only.
#pragma once

#include <functional>
#include <memory>
#include <string>

#include "platform/Image.h"
#include "platform/PixelSize.h"
#include "platform/Result.h"

namespace dayward {

class EventDetailView;

/// A mail to be finished and sent by the user.
struct MailDraft {
    std::string subject;
    std::string text;
    std::string attachmentPath;  ///< empty for none
};

class ShareServices {
public:
    using Picture = std::shared_ptr<const Image>;

    virtual ~ShareServices() = default;

    virtual void copyText(const std::string& text) = 0;
    virtual void copyImage(Picture image) = 0;
    /// Lets the user choose where a file goes. The completion is not called where the user chooses no place.
    virtual void chooseSavePath(const std::string& suggestedName,
                                std::function<void(const std::string& path)> completion) = 0;
    /// Whether a mail can bring a file along.
    [[nodiscard]] virtual bool mailTakesFiles() const = 0;
    /// Fails where no program takes it. Without a file where mailTakesFiles() is false.
    virtual Result<> composeMail(const MailDraft& draft) = 0;
    /// Has the desktop open the file with a program that the user chooses.
    virtual Result<> openWith(const std::string& path) = 0;
    /// Draws the view at that size as the screen would, without bars; null where that fails. `pixelsPerPoint`
    /// tells how large its text is. The view need not live until the completion is called.
    virtual void renderDetail(const EventDetailView& view, PixelSize size, double pixelsPerPoint,
                              std::function<void(Picture)> completion) = 0;
};

}  // namespace dayward

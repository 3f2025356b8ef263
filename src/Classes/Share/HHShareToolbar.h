// Offers an event as a text or as a picture; each opens the share sheet. Main thread only.
#pragma once

#include <functional>
#include <memory>
#include <string>

#include "Classes/Share/ShareServices.h"

namespace dayward {

class HHEvent;
class ViewController;

class HHShareToolbar {
public:
    using Open = std::function<void(std::shared_ptr<ViewController> sheet)>;

    /// The services are not owned; `open` shows a sheet as a panel.
    HHShareToolbar(ShareServices& services, Open open) : services_(services), open_(std::move(open)) {}

    [[nodiscard]] const std::shared_ptr<HHEvent>& event() const { return event_; }
    void setEvent(std::shared_ptr<HHEvent> event) { event_ = std::move(event); }

    // Localised.
    [[nodiscard]] static std::string title();       ///< "Share"
    [[nodiscard]] static std::string textTitle();   ///< "Text"
    [[nodiscard]] static std::string imageTitle();  ///< "Image"

    // Nothing without an event.
    void textAction() const;
    void imageAction() const;

private:
    ShareServices& services_;
    const Open open_;
    std::shared_ptr<HHEvent> event_;
};

}  // namespace dayward

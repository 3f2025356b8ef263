#include "Classes/Share/HHShareToolbar.h"

#include "Classes/Share/ShareViewController.h"
#include "platform/Strings.h"

namespace dayward {

std::string HHShareToolbar::title() { return localized("Share"); }

std::string HHShareToolbar::textTitle() { return localized("Text"); }

std::string HHShareToolbar::imageTitle() { return localized("Image"); }

void HHShareToolbar::textAction() const {
    if (event_) open_(std::make_shared<ShareTextViewController>(TextActivitySource(event_), services_));
}

void HHShareToolbar::imageAction() const {
    if (event_)
        open_(std::make_shared<ShareImageViewController>(std::make_shared<ImageActivitySource>(event_), services_));
}

}  // namespace dayward

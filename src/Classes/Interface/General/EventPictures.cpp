#include "Classes/Interface/General/EventPictures.h"

#include "Classes/Event/HHEvent.h"
#include "Classes/Event/LoadEventBackgroundPicture.h"
#include "Classes/Event/LoadEventIconPicture.h"
#include "Classes/Interface/General/Interface.h"

namespace dayward {

namespace {

/// What lies in the event's document is another picture with another version of the event.
template <class Loading, class Picture>
RowPicture identified(RowPicture thumbnail, const Picture& picture, const HHEvent& event) {
    if (dynamic_cast<const Loading*>(&picture) != nullptr && event.version()) {
        thumbnail.key += "@" + std::to_string(event.version()->timeInterval().seconds());
    }
    return thumbnail;
}

}  // namespace

RowPicture eventIcon(const HHEvent& event) {
    const auto icon = event.displayIcon();
    return identified<LoadEventIconPicture>(Interface::thumbnailViewForEventIcon(icon), *icon, event);
}

RowPicture eventBackground(const HHEvent& event) {
    const auto background = event.displayBackground();
    return identified<LoadEventBackgroundPicture>(Interface::thumbnailViewForEventBackground(background), *background,
                                                  event);
}

}  // namespace dayward

// The pictures behind the rows of the event list: each cut and made smaller to fill its row, on the
// global queue, and kept by its identity and size within a bound of bytes. Class operations on the
// current environment.
#pragma once

#include <functional>
#include <memory>

#include "Classes/Interface/Screens/TableRow.h"
#include "platform/Color.h"
#include "platform/Image.h"
#include "platform/PixelSize.h"

namespace dayward {

class EventBackgroundPicture;
class HHEvent;

/// What lies behind a row: the picture fills it, and over the picture, where text stands, a gradient
/// that runs out from the colour.
struct EventTableViewCellBackground {
    std::shared_ptr<const Image> image;  ///< null until it is made
    Color scrim;                         ///< its alpha is what the text needs; see textScrim()
    bool operator==(const EventTableViewCellBackground&) const = default;
};

class EventTableViewHelper {
public:
    using Block = std::function<void(const EventTableViewCellBackground&)>;

    /// What can be shown at once: the kept picture, else none and the scrim for any picture. Main thread.
    static EventTableViewCellBackground backgroundViewCellForEvent(const HHEvent& event, PixelSize size);
    /// Delivers the picture: at once where it is kept, else on the main queue once it is made. Where
    /// `wantedBy` has gone before its turn came, nothing is made and nothing delivered. Main thread.
    static void getBackgroundImageCellForEvent(const HHEvent& event, PixelSize size, std::weak_ptr<const void> wantedBy,
                                               Block inBlock);
    /// The middle of the picture that has the size's shape, at that size or smaller; the empty image
    /// where there is none. May take long; any thread.
    static std::shared_ptr<const Image> createBackgroundImageCellForPicture(const EventBackgroundPicture& picture,
                                                                            PixelSize size);
};

}  // namespace dayward

#include "recurrence/XELCalendarAnniversary.h"

namespace dayward {

std::shared_ptr<Archivable> XELCalendarAnniversary::read(KeyedUnarchiver& coder) {
    auto calendar = std::make_shared<XELCalendarAnniversary>();
    return calendar->decode(coder) ? calendar : nullptr;
}

}  // namespace dayward

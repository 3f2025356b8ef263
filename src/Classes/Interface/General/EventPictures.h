// The pictures of an event as it is shown, by identities that are others once an own picture in the
// event's document is another.
#pragma once

#include "Classes/Interface/Screens/TableRow.h"

namespace dayward {

class HHEvent;

RowPicture eventIcon(const HHEvent& event);
RowPicture eventBackground(const HHEvent& event);

}  // namespace dayward

#include "intervals/IntervalClasses.h"

#include "intervals/XDIDateInterval.h"
#include "intervals/XDIUnitInterval.h"

namespace dayward {

void registerIntervalClasses(ArchiveClasses& classes) {
    classes.add(XDIDateInterval::kClassName, XDIDateInterval::read);
    classes.add(XDIUnitInterval::kClassName, XDIUnitInterval::read);
}

}  // namespace dayward

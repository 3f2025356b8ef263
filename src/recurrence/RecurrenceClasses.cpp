#include "recurrence/RecurrenceClasses.h"

#include "recurrence/XELCalendarAnniversary.h"
#include "recurrence/XELCalendarBase.h"
#include "recurrence/XELCalendarCustom.h"
#include "recurrence/XELCalendarStandard.h"
#include "recurrence/XELDateInterval.h"

namespace dayward {

namespace {

template <class T>
void add(ArchiveClasses& classes) {
    classes.add(T::kClassName, T::read);
}

}  // namespace

void registerRecurrenceClasses(ArchiveClasses& classes) {
    add<XELCalendarBase>(classes);
    add<XELCalendarStandard>(classes);
    add<HHEventCalendarStandard>(classes);
    add<XELCalendarCustom>(classes);
    add<XELCalendarAnniversary>(classes);
    add<XELDateInterval>(classes);
    add<HHDateInterval>(classes);
}

}  // namespace dayward

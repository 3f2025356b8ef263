#include "Classes/App/ArchiveRegistration.h"

#include "Classes/Category/PictureClasses.h"
#include "Classes/Event/HHEvent.h"
#include "Classes/Other/Date/HHEventDateFormat.h"
#include "Submodules/CorpLibrary2/Foundation/FoundationClasses.h"
#include "alerts/WidgetEvent.h"
#include "intervals/IntervalClasses.h"
#include "platform/Color.h"
#include "recurrence/RecurrenceClasses.h"
#include "sync/CCSyncItemVersion.h"

namespace dayward {

std::shared_ptr<const ArchiveClasses> allArchiveClasses() {
    auto classes = std::make_shared<ArchiveClasses>();
    registerColorClass(*classes);
    registerFoundationClasses(*classes);
    registerIntervalClasses(*classes);
    registerRecurrenceClasses(*classes);
    registerSyncClasses(*classes);
    registerDateFormatClasses(*classes);
    registerPictureClasses(*classes);
    registerEventClasses(*classes);
    registerWidgetClasses(*classes);
    return classes;
}

}  // namespace dayward

#include "Classes/Category/PictureClasses.h"

#include "Classes/Category/ColorEventBackgroundPicture.h"
#include "Classes/Category/ColorEventBackgroundTemplate.h"
#include "Classes/Category/EventCategory.h"
#include "Classes/Category/HHAppImage.h"
#include "Classes/Category/HHBackground.h"
#include "Classes/Category/HHBackgroundInfo.h"
#include "Classes/Category/ImageEventBackgroundPicture.h"
#include "Classes/Category/ImageEventBackgroundTemplate.h"
#include "Classes/Category/ImageEventIconPicture.h"
#include "Classes/Category/ImageObject.h"
#include "Classes/Category/NamedEventBackgroundPicture.h"
#include "Classes/Category/NamedEventBackgroundTemplate.h"
#include "Classes/Category/NamedEventIconPicture.h"
#include "Classes/Category/RColorEventBackgroundTemplate.h"
#include "Classes/Category/RNamedEventBackgroundTemplate.h"

namespace dayward {
namespace {

template <class... Records>
void addRecords(ArchiveClasses& classes) {
    (classes.add(Records::kArchiveClass, &Records::read), ...);
}

}  // namespace

void registerPictureClasses(ArchiveClasses& classes) {
    addRecords<EventCategory, NamedEventIconPicture, ImageEventIconPicture, NamedEventBackgroundPicture,
               ImageEventBackgroundPicture, ColorEventBackgroundPicture, NamedEventBackgroundTemplate,
               ImageEventBackgroundTemplate, ColorEventBackgroundTemplate, RNamedEventBackgroundTemplate,
               RColorEventBackgroundTemplate, HHAppImage, HHBackground, HHBackgroundInfo, ImageObject>(classes);
    for (const std::string edition : {"Chronello", "Chronelle"}) {
        classes.addAlias(edition + ".RNamedEventBackgroundTemplate", RNamedEventBackgroundTemplate::kArchiveClass);
        classes.addAlias(edition + ".RColorEventBackgroundTemplate", RColorEventBackgroundTemplate::kArchiveClass);
    }
}

}  // namespace dayward

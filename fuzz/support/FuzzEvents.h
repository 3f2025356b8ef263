// What must hold for every event, wherever it came from.
#pragma once

#include "Classes/Event/EventJSON.h"
#include "Classes/Event/HHEvent.h"
#include "Classes/Event/HHGeneralEventDocumentData.h"
#include "platform/ArchiveDump.h"
#include "platform/KeyedArchiver.h"
#include "platform/KeyedUnarchiver.h"
#include "support/Fuzz.h"

namespace dayward {

/// The archive of what an archive of the program's own making holds.
inline Data rewrittenArchive(const Data& archive) {
    const auto object = KeyedUnarchiver::unarchiveObjectWithData(archive);
    require(object.has_value(), "an own archive is read", object ? "" : object.error().description());
    return KeyedArchiver::archivedDataWithRootObject(*object);
}

/// Reading puts defaults in the place of what is missing; from then on the archive stays.
inline void checkOwnArchive(const Object& object) {
    const Data archive = rewrittenArchive(KeyedArchiver::archivedDataWithRootObject(object));
    const Data again = rewrittenArchive(archive);
    require(again == archive, "an own archive stays",
            again == archive ? "" : *archiveAsJSON(archive) + "\n" + *archiveAsJSON(again));
}

inline void checkEventJSON(const HHEvent& event) {
    const auto rewritten = [](const std::string& text) {
        const auto parsed = eventFromJSON(text);
        require(parsed.has_value(), "own JSON is read", parsed ? "" : parsed.error().description() + "\n" + text);
        return eventJSON(**parsed);
    };
    // What JSON cannot hold, such as a date that is no number, is gone the first time.
    const std::string text = rewritten(eventJSON(event, {.computedFields = true}));
    require(rewritten(text) == text, "own JSON stays", text);
}

inline void checkEvent(const HHEvent& event) {
    (void)event.datesCalculation();
    (void)event.displayFont();
    (void)event.displayTextColor();
    checkOwnArchive(event.getStoreInfo());
    checkEventJSON(event);
}

}  // namespace dayward

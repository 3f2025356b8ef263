// Keyed archives and property lists, binary and XML, with every class that the program knows.
#include <nlohmann/json.hpp>

#include "Classes/App/ArchiveRegistration.h"
#include "Classes/Event/PropertyListFile.h"
#include "platform/ArchiveDump.h"
#include "support/FuzzEvents.h"
#include "support/TestEnvironment.h"

namespace {

using namespace dayward;

bool canBeShown(const Data& archive) {
    const auto dump = archiveAsJSON(archive);
    require(!dump || nlohmann::json::accept(*dump), "an archive is shown as JSON", dump.value_or(""));
    return dump.has_value();
}

void checkPropertyList(const Data& bytes) {
    const Object list = objectFromPropertyList(bytes);
    if (list.isNull()) return;
    const auto written = propertyListFromObject(list);
    require(written.has_value(), "a property list that was read can be written");
    require(propertyListFromObject(objectFromPropertyList(*written)) == written, "an own property list stays");
}

void checkObjects(const Data& archive) {
    const auto object = KeyedUnarchiver::unarchiveObjectWithData(archive);
    if (!object) return require(!object.error().description().empty(), "an error says why");
    checkOwnArchive(*object);
    const bool isShown = canBeShown(KeyedArchiver::archivedDataWithRootObject(*object));
    require(isShown || !canBeShown(archive), "what can be shown can be shown when it is rewritten");
}

}  // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size) {
    static const TestEnvironment environment({.archiveClasses = allArchiveClasses()});
    const Data archive(bytes, bytes + size);
    (void)canBeShown(archive);
    checkPropertyList(archive);
    runOrStop([&] { checkObjects(archive); });
    return 0;
}

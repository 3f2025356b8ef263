// One event as JSON text.
#include "Classes/App/ArchiveRegistration.h"
#include "support/FaultFileSystem.h"
#include "support/FuzzEvents.h"
#include "support/TestEnvironment.h"

int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size) {
    using namespace dayward;
    static const auto classes = allArchiveClasses();
    const TestEnvironment environment({.files = std::make_shared<FaultFileSystem>(), .archiveClasses = classes});
    const auto event = eventFromJSON(FuzzInput(bytes, size).text());
    if (!event) {
        require(!event.error().description().empty(), "an error says why");
        return 0;
    }
    checkEvent(**event);
    checkOwnArchive(*event);
    return 0;
}

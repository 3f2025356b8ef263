// An event's package: the input is a row of files, each a byte for the name, two for the length, its bytes.
// The files of a package that is read and rewritten stay, and the event stays what it is.
#include "Classes/App/ArchiveRegistration.h"
#include "Classes/Event/EventDocument.h"
#include "Classes/Event/EventStoreHelper.h"
#include "Classes/Event/FileExamination.h"
#include "Classes/Event/PackageReader.h"
#include "Classes/Share/TextActivitySource.h"
#include "platform/UnreadableFiles.h"
#include "support/FaultFileSystem.h"
#include "support/FuzzEvents.h"
#include "support/TestEnvironment.h"

namespace {

using namespace dayward;

constexpr const char* kNames[] = {EventDocument::kGeneralFile, EventDocument::kIconFile,
                                  EventDocument::kBackgroundFile, "other.plist"};

void checkFiles(const std::string& path) {
    EventDocument document(path);
    if (!document.readFromURL(path)) return;
    for (const char* name : kNames) {
        (void)document.imageForKey(name);
        (void)document.valueForKey(name);
        const Object list = document.propertyListForKey(name);
        require(list.isNull() || document.setPropertyList(list, name), "a property list can be written");
    }
}

std::map<std::string, Data> withoutGeneral(const FaultFileSystem& files, const std::string& path) {
    auto tree = files.tree(path);
    tree.erase(EventDocument::kGeneralFile);
    return tree;
}

void checkRewriting(const FaultFileSystem& files, const HHEvent& event, const std::string& path) {
    const auto others = withoutGeneral(files, path);
    const Data before = KeyedArchiver::archivedDataWithRootObject(event.getStoreInfo());
    const auto written = EventStoreHelper::writeEvent(event, path);
    require(written.has_value(), "an event that was read is written",
            written ? "" : written.error().description());
    require(withoutGeneral(files, path) == others, "the other files of a package stay");
    const auto again = EventStoreHelper::readEvent(path);
    require(again && KeyedArchiver::archivedDataWithRootObject((*again)->getStoreInfo()) == before,
            "an event stays");
    const auto document = EventStoreHelper::readEventDocument(path);
    require(document && EventStoreHelper::getEventFromDocument(*document), "a document is an event too");
}

void checkPackage(const FaultFileSystem& files, const std::string& path) {
    Environment& environment = Environment::current();
    UnreadableFiles unreadable(environment.files(), joinPath(environment.paths().state, "unreadable"));
    const LoadedPackage package = PackageReader(environment, unreadable).read(path);
    const bool isFaulty = !faultsOfFile(path).empty();
    checkFiles(path);
    if (!package.event) return require(isFaulty || !package.exists, "a package without an event is faulty");
    const HHEvent& event = **package.event;
    (void)event.displayIcon()->getImage();
    (void)event.displayBackground()->getImage();
    (void)TextActivitySource(*package.event).text();
    checkEvent(event);
    checkRewriting(files, event, path);
}

}  // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size) {
    static const auto classes = allArchiveClasses();
    const auto files = std::make_shared<FaultFileSystem>();
    const TestEnvironment environment({.files = files, .archiveClasses = classes});
    const std::string path = joinPath(environment->paths().documents, "key.evn");
    for (FuzzInput input(bytes, size); !input.isEmpty();) {
        const auto name = kNames[static_cast<std::size_t>(input.number(1) & 3)];
        files->store(joinPath(path, name), input.take(static_cast<std::size_t>(input.number(2) & 0xFFFF)));
    }
    runOrStop([&] { checkPackage(*files, path); });
    return 0;
}

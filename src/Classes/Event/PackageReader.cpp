#include "Classes/Event/PackageReader.h"

#include "Classes/Event/DocumentImages.h"
#include "Classes/Event/EventStoreHelper.h"
#include "Classes/Event/HHEvent.h"
#include "platform/Parallel.h"

namespace dayward {

namespace {

constexpr std::size_t kPackagesPerThread = 64;

}  // namespace

LoadedPackage PackageReader::read(const std::string& path) const {
    LoadedPackage package = readWhole(path);
    if (package.event) EventStoreHelper::forgetImages(path);
    return package;
}

LoadedPackage PackageReader::readWhole(const std::string& path) const {
    LoadedPackage package{path, true, {}, {}};
    const FileSystem& files = environment_.files();
    const auto directory = files.status(path);
    if (!directory) {
        package.event = std::unexpected(directory.error());
    } else if (*directory) {
        const auto general = files.readFileWithStatus(joinPath(path, EventDocument::kGeneralFile));
        package.stamp = PackageStamp{PackageStamp::Identity(**directory), {}};
        if (general) {
            package.stamp->general = PackageStamp::Identity(general->status);
        } else if (auto stamp = PackageStamp::ofPackage(files, path); stamp && *stamp) {
            package.stamp = *std::move(stamp);
        }
        readStamped(package, general);
    } else {
        package.exists = false;
        package.event = failure("event store", 0, {{"path", path}, {"reason", "no such package"}});
    }
    return package;
}

void PackageReader::readStamped(LoadedPackage& package, const Result<ReadFile>& general) const {
    if (!unreadable_.isEmpty()) {
        if (const auto reason = unreadable_.reasonToLeaveOut(package.path, package.stamp->text())) {
            package.event =
                failure("event store", 0,
                        {{"path", package.path}, {"reason", "left out, reading it stopped the program: " + *reason}});
            return;
        }
    }
    const UnreadableFiles::Reading reading(unreadable_, package.path, [&] { return package.stamp->text(); });
    package.event = general ? EventStoreHelper::eventFromGeneralData(general->bytes, package.path)
                            : EventStoreHelper::readEvent(package.path);
    if (package.event) unreadable_.forget(package.path);
}

std::vector<LoadedPackage> PackageReader::readAll(const std::vector<std::string>& paths) const {
    std::vector<LoadedPackage> packages(paths.size());
    inParallel(paths.size(), kPackagesPerThread, [&](std::size_t i) { packages[i] = readWhole(paths[i]); });
    DocumentImages::forgetAll();
    return packages;
}

}  // namespace dayward

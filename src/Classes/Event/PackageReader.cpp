#include "Classes/Event/PackageReader.h"

#include <algorithm>
#include <atomic>
#include <thread>

#include "Classes/Event/EventStoreHelper.h"
#include "Classes/Event/HHEvent.h"

namespace dayward {

namespace {

constexpr std::size_t kPackagesPerThread = 64;
constexpr std::size_t kMostThreads = 16;

std::size_t threadCount(std::size_t packages) {
    const std::size_t cores = std::max(1U, std::thread::hardware_concurrency());
    return std::clamp(packages / kPackagesPerThread, std::size_t{1}, std::min(cores, kMostThreads));
}

}  // namespace

LoadedPackage PackageReader::read(const std::string& path) const {
    LoadedPackage package{path, true, {}, {}};
    auto stamp = PackageStamp::ofPackage(environment_.files(), path);
    if (!stamp) {
        package.event = std::unexpected(std::move(stamp.error()));
    } else if (*stamp) {
        package.stamp = *std::move(stamp);
        readStamped(package);
    } else {
        package.exists = false;
        package.event = failure("event store", 0, {{"path", path}, {"reason", "no such package"}});
    }
    return package;
}

void PackageReader::readStamped(LoadedPackage& package) const {
    if (const auto reason = unreadable_.reasonToLeaveOut(package.path, package.stamp->text)) {
        package.event =
            failure("event store", 0,
                    {{"path", package.path}, {"reason", "left out, reading it stopped the program: " + *reason}});
        return;
    }
    const UnreadableFiles::Reading reading(unreadable_, package.path, package.stamp->text);
    package.event = EventStoreHelper::readEvent(package.path);
    if (package.event) unreadable_.forget(package.path);
}

std::vector<LoadedPackage> PackageReader::readAll(const std::vector<std::string>& paths) const {
    std::vector<LoadedPackage> packages(paths.size());
    std::atomic<std::size_t> next = 0;
    const auto work = [&] {
        const EnvironmentScope scope(&environment_);
        for (std::size_t i = next++; i < paths.size(); i = next++) packages[i] = read(paths[i]);
    };
    std::vector<std::jthread> helpers;
    for (std::size_t count = threadCount(paths.size()); count > 1; --count) helpers.emplace_back(work);
    work();
    helpers.clear();
    return packages;
}

}  // namespace dayward

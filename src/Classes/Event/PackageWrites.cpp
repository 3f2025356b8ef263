#include "Classes/Event/PackageWrites.h"

#include "platform/Log.h"

namespace dayward {

PackageWrites::PackageWrites(std::shared_ptr<DispatchQueue> queue, std::string owner)
    : queue_(std::move(queue)), owner_(std::move(owner)) {}

void PackageWrites::add(const std::string& key, Operation operation) {
    const Lock lock(mutex_);
    unfinished_.insert(++lastTicket_);
    lines_[key].waiting.push_back({lastTicket_, std::move(operation)});
}

void PackageWrites::run(std::vector<std::string> keys) {
    queue_->async([this, keys = std::move(keys)] {
        for (const std::string& key : keys) drain(key);
    });
}

void PackageWrites::drain(const std::string& key) {
    for (auto waiting = take(key); waiting; waiting = takeNext(key)) {
        const Result<> result = waiting->operation();
        if (!result) logError(owner_ + ": " + result.error().description());
        finish(key, waiting->ticket, result);
    }
}

std::optional<PackageWrites::Waiting> PackageWrites::take(const std::string& key) {
    {
        const Lock lock(mutex_);
        const auto line = lines_.find(key);
        if (line == lines_.end() || line->second.isRunning()) return {};
        line->second.runner = std::this_thread::get_id();
    }
    return takeNext(key);
}

std::optional<PackageWrites::Waiting> PackageWrites::takeNext(const std::string& key) {
    const Lock lock(mutex_);
    Line& line = lines_[key];
    if (line.waiting.empty()) {
        lines_.erase(key);
        return {};
    }
    Waiting next = std::move(line.waiting.front());
    line.waiting.pop_front();
    line.fileIsDone = false;
    return next;
}

void PackageWrites::finish(const std::string& key, std::uint64_t ticket, const Result<>& result) {
    {
        const Lock lock(mutex_);
        lines_[key].fileIsDone = true;
        unfinished_.erase(ticket);
        if (result) {
            failed_.erase(key);
        } else {
            failed_.insert(key);
            if (!firstFailure_) firstFailure_ = result.error();
        }
    }
    finished_.notify_all();
}

void PackageWrites::drainAll() {
    for (const std::string& key : waitingKeys()) drain(key);
}

Result<> PackageWrites::flush() {
    queue_->sync([this] { drainAll(); });
    const Lock lock(mutex_);
    const std::uint64_t last = lastTicket_;
    while (!unfinished_.empty() && *unfinished_.begin() <= last) finished_.wait(mutex_);
    if (!firstFailure_) return {};
    const Error failed = *std::move(firstFailure_);
    firstFailure_.reset();
    return std::unexpected(failed);
}

void PackageWrites::fileIsDone(const std::string& key) {
    const Lock lock(mutex_);
    const auto line = lines_.find(key);
    if (line != lines_.end() && line->second.runner == std::this_thread::get_id()) line->second.fileIsDone = true;
}

void PackageWrites::noteChange(const std::string& key) {
    const Lock lock(mutex_);
    ++changeCounts_[key];
}

std::optional<std::uint64_t> PackageWrites::settledChange(const std::string& key) const {
    const Lock lock(mutex_);
    const auto line = lines_.find(key);
    if (line != lines_.end() && line->second.isPending()) return {};
    const auto count = changeCounts_.find(key);
    return count == changeCounts_.end() ? 0 : count->second;
}

std::unordered_set<std::string> PackageWrites::waitingKeys() const {
    const Lock lock(mutex_);
    std::unordered_set<std::string> keys;
    for (const auto& [key, line] : lines_)
        if (line.isPending()) keys.insert(key);
    return keys;
}

bool PackageWrites::hasFailed(const std::string& key) const {
    const Lock lock(mutex_);
    return failed_.contains(key);
}

}  // namespace dayward

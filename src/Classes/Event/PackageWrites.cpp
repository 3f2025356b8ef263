#include "Classes/Event/PackageWrites.h"

#include "platform/Log.h"

namespace dayward {

namespace {

/// While a batch is written, other processes wait for its packages.
constexpr std::size_t kLargestBatch = 1024;

}  // namespace

PackageWrites::PackageWrites(std::shared_ptr<DispatchQueue> queue, std::string owner, Writer writer)
    : queue_(std::move(queue)), owner_(std::move(owner)), writer_(std::move(writer)) {}

void PackageWrites::add(const std::string& key, Object value) {
    const Lock lock(mutex_);
    unfinished_.insert(++lastTicket_);
    ++changeCounts_[key];
    lines_[key].waiting.push_back({lastTicket_, std::move(value)});
    ready_.push_back(key);
}

void PackageWrites::run() {
    queue_->async([this] { drain(); });
}

void PackageWrites::drain() {
    for (Batch batch = takeBatch(); !batch.writes.empty(); batch = takeBatch()) {
        std::vector<Result<>> results = writer_(batch.writes);
        for (std::size_t i = 0; i < results.size(); ++i) {
            if (results[i]) continue;
            // What fails for many at once, as a sync does, does not name them.
            results[i].error().userInfo.try_emplace("key", batch.writes[i].key);
            logError(owner_ + ": " + results[i].error().description());
        }
        {
            const Lock lock(mutex_);
            for (std::size_t i = 0; i < results.size(); ++i) finish(batch.writes[i].key, batch.tickets[i], results[i]);
        }
        finished_.notify_all();
    }
}

PackageWrites::Batch PackageWrites::takeBatch() {
    const Lock lock(mutex_);
    Batch batch;
    while (!ready_.empty() && batch.writes.size() < kLargestBatch) {
        const std::string key = std::move(ready_.front());
        ready_.pop_front();
        const auto found = lines_.find(key);
        if (found == lines_.end() || found->second.isRunning()) continue;
        Line& line = found->second;
        batch.tickets.push_back(line.waiting.front().ticket);
        batch.writes.push_back({key, std::move(line.waiting.front().value)});
        line.waiting.pop_front();
        line.runner = std::this_thread::get_id();
        line.fileIsDone = false;
    }
    return batch;
}

void PackageWrites::finish(const std::string& key, std::uint64_t ticket, const Result<>& result) {
    unfinished_.erase(ticket);
    Line& line = lines_[key];
    line.runner = {};
    if (line.waiting.empty()) {
        lines_.erase(key);
    } else {
        ready_.push_back(key);
    }
    if (result) {
        failed_.erase(key);
    } else {
        failed_.insert(key);
        if (!firstFailure_) firstFailure_ = result.error();
    }
}

Result<> PackageWrites::flush() {
    queue_->sync([this] { drain(); });
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

void PackageWrites::forgetFailure(const std::string& key) {
    const Lock lock(mutex_);
    failed_.erase(key);
}

void PackageWrites::forgetFailures() {
    const Lock lock(mutex_);
    failed_.clear();
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

std::vector<std::string> PackageWrites::failedKeys() const {
    const Lock lock(mutex_);
    std::vector<std::string> keys;
    for (const std::string& key : failed_)
        if (!lines_.contains(key)) keys.push_back(key);
    return keys;
}

bool PackageWrites::hasFailed(const std::string& key) const {
    const Lock lock(mutex_);
    return failed_.contains(key);
}

}  // namespace dayward

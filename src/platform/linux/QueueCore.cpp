#include "platform/linux/QueueCore.h"

#include <asio/post.hpp>
#include <chrono>
#include <future>

namespace dayward {

namespace {

std::chrono::steady_clock::time_point deadlineAfter(TimeInterval delay) {
    const auto now = std::chrono::steady_clock::now();
    if (delay <= TimeInterval(0)) return now;
    using Duration = std::chrono::steady_clock::duration;
    const auto longest = std::chrono::duration<double>(std::chrono::steady_clock::time_point::max() - now);
    const std::chrono::duration<double> wanted(delay.seconds());
    if (wanted >= longest) return std::chrono::steady_clock::time_point::max();
    // Rounded up: never before its time.
    return now + std::chrono::ceil<Duration>(wanted);
}

}  // namespace

void OpenBlocks::enter() {
    const Lock lock(mutex_);
    ++pool_;
}

void OpenBlocks::leave() {
    const Lock lock(mutex_);
    if (--pool_ == 0) changed_.notify_all();
}

void OpenBlocks::enterMain() {
    const Lock lock(mutex_);
    ++main_;
    changed_.notify_all();
}

void OpenBlocks::leaveMain() {
    const Lock lock(mutex_);
    --main_;
}

void OpenBlocks::waitForPool() {
    const Lock lock(mutex_);
    while (pool_ != 0) changed_.wait(mutex_);
}

bool OpenBlocks::waitForMainBlock() {
    const Lock lock(mutex_);
    while (pool_ != 0 && main_ == 0) changed_.wait(mutex_);
    return main_ != 0;
}

void DelayTimers::close() {
    std::thread thread;
    {
        const Lock lock(mutex_);
        closed_ = true;
        thread.swap(thread_);
    }
    if (!thread.joinable()) return;
    work_.reset();
    asio::post(context_, [this] { waiting_.clear(); });
    thread.join();
}

void DelayTimers::add(TimeInterval delay, Block fire) {
    const auto deadline = deadlineAfter(delay);
    const std::uint64_t number = ++lastNumber_;
    const Lock lock(mutex_);
    if (closed_) return;
    if (!thread_.joinable()) thread_ = std::thread([this] { context_.run(); });
    asio::post(context_, [this, deadline, number, fire = std::move(fire)]() mutable {
        Delay delayed{asio::steady_timer(context_, deadline), std::move(fire)};
        auto& timer = waiting_.emplace(number, std::move(delayed)).first->second.timer;
        timer.async_wait([this, number](const asio::error_code&) {
            // Gone from the list: dropped, even where the time had come already.
            if (const auto due = waiting_.extract(number)) due.mapped().fire();
        });
    });
}

void DelayTimers::dropAll() {
    std::promise<void> dropped;
    {
        const Lock lock(mutex_);
        if (!thread_.joinable()) return;
        asio::post(context_, [&] {
            waiting_.clear();
            dropped.set_value();
        });
    }
    dropped.get_future().wait();
}

void QueueCore::post(std::function<void()> block) {
    const Lock lock(mutex_);
    if (closed_) return;
    if (!pool_) pool_.emplace(threads_);
    asio::post(*pool_, std::move(block));
}

void QueueCore::close() {
    timers.close();
    asio::thread_pool* pool = nullptr;
    {
        const Lock lock(mutex_);
        closed_ = true;
        if (pool_) pool = &*pool_;
    }
    if (pool != nullptr) pool->join();
}

}  // namespace dayward

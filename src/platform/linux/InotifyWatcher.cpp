#include "platform/linux/InotifyWatcher.h"

#include <poll.h>
#include <sys/eventfd.h>

#include <algorithm>
#include <array>
#include <atomic>
#include <chrono>
#include <thread>

#include "platform/Environment.h"
#include "platform/linux/InotifyTree.h"

namespace dayward {

namespace {

using SteadyClock = std::chrono::steady_clock;
using std::chrono::milliseconds;

constexpr milliseconds kQuiet{50};
constexpr milliseconds kLongestGathering{500};

/// The thread's side of a watch; it outlives the watch where the handler destroys that.
class WatchThread {
public:
    WatchThread(InotifyTree tree, DirectoryWatch::Handler handler)
        : tree_(std::move(tree)),
          handler_(std::move(handler)),
          environment_(Environment::hasCurrent() ? &Environment::current() : nullptr),
          wake_(::eventfd(0, EFD_CLOEXEC | EFD_NONBLOCK)) {}

    void run() {
        const EnvironmentScope scope(environment_);
        DirectoryChanges changes;
        SteadyClock::time_point first;
        while (wait(changes.any() ? timeLeft(first) : milliseconds(-1), changes, first)) {
            if (changes.any() && timeLeft(first) == milliseconds(0)) tell(changes);
        }
    }

    void watchInside() {
        insideWanted_ = true;
        (void)::eventfd_write(wake_.get(), 1);
    }

    void stop() {
        stopped_ = true;
        (void)::eventfd_write(wake_.get(), 1);
    }

private:
    [[nodiscard]] milliseconds timeLeft(SteadyClock::time_point first) const {
        const auto due = std::min(lastEvent_ + kQuiet, first + kLongestGathering);
        return std::max(milliseconds(0), std::chrono::ceil<milliseconds>(due - SteadyClock::now()));
    }

    /// Waits for events or until the time is over; false once the watch has ended.
    bool wait(milliseconds timeout, DirectoryChanges& changes, SteadyClock::time_point& first) {
        std::array<pollfd, 2> sources{{{tree_.descriptor(), POLLIN, 0}, {wake_.get(), POLLIN, 0}}};
        (void)::poll(sources.data(), sources.size(), static_cast<int>(timeout.count()));
        if (stopped_) return false;
        const bool inside = insideWanted_.exchange(false);
        if ((sources[0].revents & POLLIN) == 0 && !inside) return true;
        const bool anyBefore = changes.any();
        if (inside) goInside(changes);
        tree_.readEvents(changes);
        lastEvent_ = SteadyClock::now();
        if (!anyBefore) first = lastEvent_;
        return !stopped_;
    }

    void goInside(DirectoryChanges& changes) {
        eventfd_t count = 0;
        (void)::eventfd_read(wake_.get(), &count);
        tree_.watchInside([this] { return stopped_.load(); });
        changes.lost = true;
    }

    void tell(DirectoryChanges& changes) {
        const DirectoryChanges told = std::exchange(changes, {});
        handler_(told.lost ? std::vector<std::string>() : std::vector(told.names.begin(), told.names.end()));
    }

    InotifyTree tree_;
    const DirectoryWatch::Handler handler_;
    Environment* const environment_;
    const FileDescriptor wake_;
    std::atomic<bool> stopped_ = false;
    std::atomic<bool> insideWanted_ = false;
    SteadyClock::time_point lastEvent_;
};

class InotifyWatch final : public DirectoryWatch {
public:
    explicit InotifyWatch(std::shared_ptr<WatchThread> worker)
        : worker_(std::move(worker)), thread_([worker = worker_] { worker->run(); }) {}

    void watchInside() override { worker_->watchInside(); }

    ~InotifyWatch() override {
        worker_->stop();
        if (thread_.get_id() == std::this_thread::get_id()) {
            thread_.detach();
        } else {
            thread_.join();
        }
    }

private:
    std::shared_ptr<WatchThread> worker_;
    std::thread thread_;
};

}  // namespace

Result<std::unique_ptr<DirectoryWatch>> InotifyWatcher::watch(const std::string& directory,
                                                              DirectoryWatch::Handler handler) {
    auto tree = TRY(InotifyTree::open(directory));
    return std::make_unique<InotifyWatch>(std::make_shared<WatchThread>(std::move(tree), std::move(handler)));
}

}  // namespace dayward

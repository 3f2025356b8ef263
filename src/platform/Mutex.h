// The one mutex of the program, annotated for Clang's thread-safety analysis: members say which
// lock guards them (DAYWARD_GUARDED_BY), and a forgotten lock does not compile.
#pragma once

#include <atomic>
#include <mutex>

#if defined(__clang__)
#define DAYWARD_THREAD_ANNOTATION(x) __attribute__((x))
#else
#define DAYWARD_THREAD_ANNOTATION(x)
#endif

#define DAYWARD_GUARDED_BY(x) DAYWARD_THREAD_ANNOTATION(guarded_by(x))
#define DAYWARD_REQUIRES(...) DAYWARD_THREAD_ANNOTATION(requires_capability(__VA_ARGS__))
#define DAYWARD_EXCLUDES(...) DAYWARD_THREAD_ANNOTATION(locks_excluded(__VA_ARGS__))

namespace dayward {

class DAYWARD_THREAD_ANNOTATION(capability("mutex")) Mutex {
public:
    void lock() DAYWARD_THREAD_ANNOTATION(acquire_capability()) { mutex_.lock(); }
    void unlock() DAYWARD_THREAD_ANNOTATION(release_capability()) { mutex_.unlock(); }

private:
    std::mutex mutex_;
};

/// One byte, for what there is very much of, and rarely wanted by two threads.
class DAYWARD_THREAD_ANNOTATION(capability("mutex")) SmallMutex {
public:
    void lock() DAYWARD_THREAD_ANNOTATION(acquire_capability()) {
        while (locked_.test_and_set(std::memory_order_acquire)) locked_.wait(true, std::memory_order_relaxed);
    }
    void unlock() DAYWARD_THREAD_ANNOTATION(release_capability()) {
        locked_.clear(std::memory_order_release);
        locked_.notify_one();
    }

private:
    std::atomic_flag locked_;
};

/// A monitor: the thread that holds it may take it again.
class DAYWARD_THREAD_ANNOTATION(capability("mutex")) RecursiveMutex {
public:
    void lock() DAYWARD_THREAD_ANNOTATION(acquire_capability()) { mutex_.lock(); }
    void unlock() DAYWARD_THREAD_ANNOTATION(release_capability()) { mutex_.unlock(); }

private:
    std::recursive_mutex mutex_;
};

template <class M>
class DAYWARD_THREAD_ANNOTATION(scoped_lockable) Lock {
public:
    explicit Lock(M& mutex) DAYWARD_THREAD_ANNOTATION(acquire_capability(mutex)) : mutex_(mutex) { mutex_.lock(); }
    ~Lock() DAYWARD_THREAD_ANNOTATION(release_capability()) { mutex_.unlock(); }
    Lock(const Lock&) = delete;
    Lock& operator=(const Lock&) = delete;

private:
    M& mutex_;
};

}  // namespace dayward

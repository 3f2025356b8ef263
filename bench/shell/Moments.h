// Moments and sizes of this process, for the benches of the application.
#pragma once

#include <unistd.h>

#include <ctime>
#include <fstream>

namespace dayward::bench {

inline long long nanosecondsOf(clockid_t clock) {
    timespec moment{};
    clock_gettime(clock, &moment);
    return moment.tv_sec * 1000000000LL + moment.tv_nsec;
}

/// Of the clock that all processes share.
inline long long presentNanoseconds() { return nanosecondsOf(CLOCK_MONOTONIC); }
/// What this thread has used of a processor: what others use does not count.
inline long long threadNanoseconds() { return nanosecondsOf(CLOCK_THREAD_CPUTIME_ID); }

/// The memory of this process that is in use.
inline long long residentBytes() {
    long long pages = 0, resident = 0;
    std::ifstream("/proc/self/statm") >> pages >> resident;
    return resident * sysconf(_SC_PAGESIZE);
}

}  // namespace dayward::bench

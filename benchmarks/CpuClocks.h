#pragma once
// CPU time for benchmarks on a shared machine, where wall time counts others' work.
#include <sys/resource.h>
#include <time.h>

namespace tessaly::bench {

// CPU time of the calling thread.
inline double threadCpuSeconds() {
    timespec t{};
    clock_gettime(CLOCK_THREAD_CPUTIME_ID, &t);
    return static_cast<double>(t.tv_sec) + static_cast<double>(t.tv_nsec) * 1e-9;
}

// CPU time (user and system) of all child processes that have ended.
inline double childCpuSeconds() {
    rusage usage{};
    getrusage(RUSAGE_CHILDREN, &usage);
    auto toSeconds = [](const timeval& v) { return static_cast<double>(v.tv_sec) + static_cast<double>(v.tv_usec) * 1e-6; };
    return toSeconds(usage.ru_utime) + toSeconds(usage.ru_stime);
}

}  // namespace tessaly::bench

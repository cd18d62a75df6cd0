// SPDX-License-Identifier: Apache-2.0
#ifndef TAMO_BENCH_CLOCK_H
#define TAMO_BENCH_CLOCK_H

#include <cstdint>
#include <ctime>

namespace tamobench {

/** Nanoseconds on the monotonic clock, which every process of the machine shares. */
inline std::int64_t now()
{
    timespec time = {};
    ::clock_gettime(CLOCK_MONOTONIC, &time);
    return std::int64_t{time.tv_sec} * 1'000'000'000 + time.tv_nsec;
}

} // namespace tamobench

#endif

// SPDX-License-Identifier: Apache-2.0
#ifndef TAMO_BENCH_PAUSE_H
#define TAMO_BENCH_PAUSE_H

#include <ctime>
#include <random>

namespace tamobench {

/** Pauses of 0.15 to 0.35 ms: of changing length, so that nothing falls into step with them. */
class Pause
{
public:
    void take()
    {
        const timespec length = {0, m_nanoseconds(m_random)};
        ::nanosleep(&length, nullptr);
    }

private:
    std::minstd_rand m_random;
    std::uniform_int_distribution<long> m_nanoseconds{150'000, 350'000};
};

} // namespace tamobench

#endif

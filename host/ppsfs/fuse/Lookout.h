// SPDX-License-Identifier: Apache-2.0
#ifndef PPSFS_LOOKOUT_H
#define PPSFS_LOOKOUT_H

#include <chrono>

namespace ppsfs {

/**
 * Stays awake for a moment in which a request is expected, so that its sender need not wake this
 * process: where a processor is idle, that takes several times as long as the request itself.
 *
 * That is of use as long as the sender runs on another processor and nobody wants this one; whoever
 * does, gets it at once. After a look that was of no use, the next ones are left out: one, then
 * three, and so on, until one is of use again; and all of them for a while where somebody who had
 * the processor meanwhile kept it, as whoever computes does.
 */
class Lookout
{
public:
    /**
     * Waits, without sleeping, until a descriptor is readable, but no longer than 200 us.
     *
     * @return whether it is; false also where this look is left out
     */
    bool sees(int descriptor);

private:
    using Clock = std::chrono::steady_clock;

    void omitMore();

    unsigned m_omitted = 0; ///< how many looks are left out after one of no use
    unsigned m_toOmit = 0;  ///< how many of them are still to come
    Clock::time_point m_restsUntil;
};

} // namespace ppsfs

#endif

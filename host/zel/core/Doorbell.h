// SPDX-License-Identifier: Apache-2.0
#ifndef ZEL_CORE_DOORBELL_H
#define ZEL_CORE_DOORBELL_H

#include "common/FileDescriptor.h"

#include <atomic>

namespace zel {

/**
 * Wakes a channel's thread. It sleeps on the futex while the channel watches no descriptors, which
 * is quicker and takes no descriptor, and in epoll_wait() on the eventfd otherwise.
 *
 * A ring may come late, when the thread is up for another reason: it then ends the next sleep at
 * once, and the thread looks again and goes back to sleep. None is lost.
 */
class Doorbell
{
public:
    enum class Kind { None, Futex, Descriptor };

    /** Makes the eventfd. 0, or an `errno` value. */
    int open();

    /** The eventfd; -1 where there is none. */
    int descriptor() const { return m_descriptor.get(); }

    /** Call it before the others can know that the thread is about to sleep on the futex. */
    void arm() { m_rung.store(0, std::memory_order_relaxed); }

    /** Sleeps on the futex until it rings, a signal comes or the time is over; -1: no limit. */
    void wait(int timeoutMs);

    /** Ends a sleep. Any thread. */
    void ring(Kind kind);

private:
    host::FileDescriptor m_descriptor;
    std::atomic<int> m_rung{0};
};

} // namespace zel

#endif

// SPDX-License-Identifier: Apache-2.0
#ifndef TAMO_BENCH_MAINTHREAD_H
#define TAMO_BENCH_MAINTHREAD_H

#include "Clock.h"
#include "Descriptor.h"

#include <QObject>

#include <atomic>
#include <functional>
#include <stdexcept>

#include <poll.h>
#include <sys/eventfd.h>

namespace tamobench {

/** The receiver in the application's thread, and how a measuring thread learns that it was reached.
 */
class MainThread : public QObject
{
public:
    MainThread() : m_done(::eventfd(0, EFD_CLOEXEC), "eventfd") {}

    /** The slot: notes the time, and wakes whoever waits for the last one of those expected. */
    void reached()
    {
        m_when = now();
        if (--m_expected == 0)
            ::eventfd_write(m_done.get(), 1);
    }

    /**
     * Has something done that reaches the slot `count` times, and waits for the last one.
     *
     * @return nanoseconds from before it until the slot was entered last
     */
    double time(long count, const std::function<void()>& begin)
    {
        m_expected = count;
        const std::int64_t start = now();
        begin();
        pollfd done = {m_done.get(), POLLIN, 0};
        if (::poll(&done, 1, 60'000) != 1)
            throw std::runtime_error("the slot is not reached");
        eventfd_t unused = 0;
        ::eventfd_read(m_done.get(), &unused);
        return static_cast<double>(m_when - start);
    }

private:
    Descriptor m_done;
    std::atomic<long> m_expected{0};
    std::atomic<std::int64_t> m_when{0};
};

} // namespace tamobench

#endif

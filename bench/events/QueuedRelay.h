// SPDX-License-Identifier: Apache-2.0
#ifndef TAMO_BENCH_QUEUEDRELAY_H
#define TAMO_BENCH_QUEUEDRELAY_H

#include "Descriptor.h"
#include "MainThread.h"

#include <QMetaObject>

#include <atomic>
#include <thread>

#include <sys/eventfd.h>

namespace tamobench {

/** The floor: a thread that is woken by an eventfd queues a call to the application's thread. */
class QueuedRelay
{
public:
    explicit QueuedRelay(MainThread& receiver)
        : m_receiver(receiver), m_wake(::eventfd(0, EFD_CLOEXEC), "eventfd")
    {
        m_thread = std::thread([this] { run(); });
    }

    ~QueuedRelay()
    {
        m_isEnding = true;
        push();
        m_thread.join();
    }

    QueuedRelay(const QueuedRelay&) = delete;
    QueuedRelay& operator=(const QueuedRelay&) = delete;

    /** Wakes the thread. */
    void push() { ::eventfd_write(m_wake.get(), 1); }

private:
    void run()
    {
        for (;;) {
            eventfd_t count = 0;
            ::eventfd_read(m_wake.get(), &count);
            if (m_isEnding)
                return;
            QMetaObject::invokeMethod(
                &m_receiver, [this] { m_receiver.reached(); }, Qt::QueuedConnection);
        }
    }

    MainThread& m_receiver;
    Descriptor m_wake;
    std::atomic<bool> m_isEnding{false};
    std::thread m_thread;
};

} // namespace tamobench

#endif

// SPDX-License-Identifier: Apache-2.0
#ifndef TAMO_TESTS_WORKERTHREAD_H
#define TAMO_TESTS_WORKERTHREAD_H

#include <QObject>
#include <QThread>

#include <chrono>
#include <future>
#include <stdexcept>

namespace tamotest {

/** A thread with an event loop, from construction to destruction. */
class WorkerThread : public QThread
{
public:
    WorkerThread()
    {
        m_inside.moveToThread(this);
        start();
    }
    ~WorkerThread() override { end(); }

    /** Runs something in the thread, and waits until it is done. */
    template<typename Work>
    void run(Work work)
    {
        QMetaObject::invokeMethod(&m_inside, work, Qt::BlockingQueuedConnection);
    }

    /** Ends the thread and waits for that. */
    void end()
    {
        quit();
        wait();
    }

private:
    QObject m_inside;
};

/** What a promise comes to, waited for with a limit. */
template<typename Value>
Value valueOf(std::promise<Value>& promise)
{
    std::future<Value> future = promise.get_future();
    if (future.wait_for(std::chrono::seconds(10)) != std::future_status::ready)
        throw std::runtime_error("nothing came");
    return future.get();
}

} // namespace tamotest

#endif

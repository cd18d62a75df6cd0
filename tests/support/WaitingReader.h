// SPDX-License-Identifier: Apache-2.0
#ifndef TAMO_TESTS_WAITINGREADER_H
#define TAMO_TESTS_WAITINGREADER_H

#include "PpsDescriptor.h"

#include <pthread.h>
#include <sys/types.h>

#include <future>
#include <thread>

namespace tamotest {

/** Waits, with a limit, until a thread of a process sleeps in a system call. False where it never
 * did. */
bool waitUntilSleepsIn(pid_t process, pid_t thread, long systemCall);

/** A thread that is inside read(); the constructor returns when it waits there. */
class WaitingReader
{
public:
    explicit WaitingReader(const PpsDescriptor& descriptor);
    ~WaitingReader();
    WaitingReader(const WaitingReader&) = delete;
    WaitingReader& operator=(const WaitingReader&) = delete;

    /** Sends the thread a signal that does nothing but interrupt. */
    void interrupt();

    /** Whether read() has returned. */
    bool isDone() const;

    /** What read() returned, waited for with a limit; ETIMEDOUT where it did not return. */
    ReadResult result();

private:
    std::promise<pid_t> m_threadId;
    std::future<ReadResult> m_result;
    std::thread m_thread;
};

} // namespace tamotest

#endif

// SPDX-License-Identifier: Apache-2.0
#ifndef TAMO_TESTS_PROCESSORTIME_H
#define TAMO_TESTS_PROCESSORTIME_H

#include <QEventLoop>
#include <QTimer>

#include <chrono>
#include <sys/resource.h>

namespace tamotest {

/** The processor time that this process has used. */
inline std::chrono::microseconds processorTime()
{
    rusage usage;
    getrusage(RUSAGE_SELF, &usage);
    const auto duration = [](const timeval& time) {
        return std::chrono::seconds(time.tv_sec) + std::chrono::microseconds(time.tv_usec);
    };
    return duration(usage.ru_utime) + duration(usage.ru_stime);
}

/** Runs the event loop for a time; returns how much processor time that took. */
inline std::chrono::microseconds processorTimeOfEventLoop(std::chrono::milliseconds time)
{
    QEventLoop loop;
    QTimer::singleShot(time, &loop, &QEventLoop::quit);
    const auto before = processorTime();
    loop.exec();
    return processorTime() - before;
}

} // namespace tamotest

#endif

// SPDX-License-Identifier: Apache-2.0
#ifndef TAMO_BENCH_BATTERYAPPLICATION_H
#define TAMO_BENCH_BATTERYAPPLICATION_H

#include "ChildProcess.h"
#include "Descriptor.h"
#include "PpsTransport.h"
#include "SharedMemory.h"

#include <atomic>
#include <cstdint>
#include <memory>

namespace tamobench {

/** A Qt application that follows the battery, in a process of its own. */
class BatteryApplication
{
public:
    /** Which of Qt's event dispatchers the application runs on. */
    enum Dispatcher { GLib, Unix };

    /**
     * Publishes the battery's and the charger's objects and starts the application; returns when
     * its event loop runs.
     */
    explicit BatteryApplication(Dispatcher dispatcher);

    /**
     * Publishes another level and waits until the application's levelChanged() has told of it.
     * Throws where it tells something else, or within ten seconds nothing.
     *
     * @return nanoseconds from before the publication until the slot is entered
     */
    double publish();

private:
    void run(Dispatcher dispatcher);
    void awaitDone(const char* what);

    SharedMemory<std::atomic<int>> m_expected;
    SharedMemory<std::atomic<std::int64_t>> m_heard;
    Descriptor m_done;
    PpsTransport m_battery;
    PpsTransport m_charger;
    std::unique_ptr<Publisher> m_publisher;
    ChildProcess m_process;
};

} // namespace tamobench

#endif

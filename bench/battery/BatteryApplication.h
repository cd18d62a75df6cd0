// SPDX-License-Identifier: Apache-2.0
#ifndef TAMO_BENCH_BATTERYAPPLICATION_H
#define TAMO_BENCH_BATTERYAPPLICATION_H

#include "ApplicationProcess.h"
#include "PpsTransport.h"

#include <memory>

namespace tamobench {

/** A Qt application that follows the battery, in a process of its own. */
class BatteryApplication
{
public:
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
    void run();

    int m_level = 50;
    PpsTransport m_battery;
    PpsTransport m_charger;
    std::unique_ptr<Publisher> m_publisher;
    ApplicationProcess m_process;
};

} // namespace tamobench

#endif

// SPDX-License-Identifier: Apache-2.0
#ifndef TAMO_BENCH_LEDAPPLICATION_H
#define TAMO_BENCH_LEDAPPLICATION_H

#include "ApplicationProcess.h"
#include "PpsTransport.h"
#include "ServedMailbox.h"

#include <cstddef>
#include <memory>

namespace tamobench {

/** A Qt application that flashes the LED, in a process of its own, and the LED service. */
class LedApplication
{
public:
    /** Serves the LED and starts the application; returns when it has asked for its flashes. */
    explicit LedApplication(Dispatcher dispatcher);

    /**
     * Publishes a flash and waits until the application's remainingFlashCountChanged() has told of
     * it. Throws where it tells something else, or within ten seconds nothing.
     *
     * @return nanoseconds from before the publication until the slot is entered
     */
    double publishFlash();

    /** How many bytes the application reads of a flash. */
    static std::size_t flashSize();

private:
    void run();

    int m_remaining;
    ServedMailbox m_control;
    PpsTransport m_status;
    std::unique_ptr<Publisher> m_publisher;
    ApplicationProcess m_process;
};

} // namespace tamobench

#endif

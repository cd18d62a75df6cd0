// SPDX-License-Identifier: Apache-2.0
#include "Log.h"

#include <iostream>
#include <mutex>

namespace tamo::detail {

// Lines of several threads come one after the other. Nothing is called with it held, and it needs
// no destructor, so that threads may log for as long as the process lives.
static std::mutex logMutex;

void writeLogLine(std::string line) noexcept
{
    try {
        line += '\n';
        const std::lock_guard lock(logMutex);
        std::cout.write(line.data(), static_cast<std::streamsize>(line.size())).flush();
    } catch (...) {
        // An application that has std::cout throw is not to lose an event for a line of the log.
    }
}

} // namespace tamo::detail

// SPDX-License-Identifier: Apache-2.0
#include "Log.h"

#include <iostream>
#include <mutex>
#include <ostream>
#include <utility>

namespace tamo::detail {

// Lines of several threads come one after the other. Nothing is called with it held, and it needs
// no destructor, so that threads may log for as long as the process lives.
static std::mutex logMutex;

static void writeLine(std::ostream& stream, std::string line) noexcept
{
    try {
        line += '\n';
        const std::lock_guard lock(logMutex);
        stream.write(line.data(), static_cast<std::streamsize>(line.size())).flush();
    } catch (...) {
        // An application that has a stream throw is not to lose an event for a line of the log.
    }
}

void writeLogLine(std::string line) noexcept
{
    writeLine(std::cout, std::move(line));
}

void writeErrorLine(std::string line) noexcept
{
    writeLine(std::cerr, std::move(line));
}

} // namespace tamo::detail

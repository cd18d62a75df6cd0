// SPDX-License-Identifier: Apache-2.0
#include "Diagnostics.h"

#include <unistd.h>

#include <algorithm>
#include <atomic>
#include <cerrno>
#include <cstdarg>
#include <cstdio>

namespace zel {
namespace {

constexpr char Prefix[] = "libzel: ";
constexpr std::size_t MaxLine = 512;

std::atomic<unsigned> currentVerbosity{0};

} // namespace

void setVerbosity(unsigned verbosity)
{
    currentVerbosity.store(verbosity, std::memory_order_relaxed);
}

bool isSaid(Level level)
{
    return currentVerbosity.load(std::memory_order_relaxed) >= static_cast<unsigned>(level);
}

void say(Level level, const char* format, ...)
{
    if (!isSaid(level))
        return;
    const int before = errno;
    char line[MaxLine];
    std::size_t length = static_cast<std::size_t>(std::snprintf(line, sizeof line, "%s", Prefix));
    va_list arguments;
    va_start(arguments, format);
    const int added = std::vsnprintf(line + length, sizeof line - length, format, arguments);
    va_end(arguments);
    if (added > 0)
        length = std::min(length + static_cast<std::size_t>(added), sizeof line - 1);
    // What was sent may be quoted: it must not make lines of its own.
    std::replace_if(
        line, line + length, [](char c) { return static_cast<unsigned char>(c) < ' '; }, '?');
    line[length++] = '\n'; // in the terminating zero's place
    // One write(), and not the stream: another thread may hold the stream's lock while it exits.
    [[maybe_unused]] const ssize_t written = ::write(STDERR_FILENO, line, length);
    errno = before;
}

} // namespace zel

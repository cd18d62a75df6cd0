// SPDX-License-Identifier: Apache-2.0
#ifndef TAMO_BENCH_MESSAGEBUS_H
#define TAMO_BENCH_MESSAGEBUS_H

#include "TemporaryDirectory.h"

#include <string>

namespace tamobench {

/** A message bus of the benchmark's own, on a socket in a temporary directory. */
class MessageBus
{
public:
    virtual ~MessageBus() = default;

    /** The program that serves the bus. */
    virtual std::string name() const = 0;

    /** Where clients connect to, as a D-Bus address. */
    std::string address() const { return "unix:path=" + socketPath(); }

protected:
    std::string socketPath() const { return m_directory.path() + "/bus"; }
    const TemporaryDirectory& directory() const { return m_directory; }

private:
    TemporaryDirectory m_directory;
};

} // namespace tamobench

#endif

// SPDX-License-Identifier: Apache-2.0
#ifndef TAMO_BENCH_DAEMONBUS_H
#define TAMO_BENCH_DAEMONBUS_H

#include "ChildProcess.h"
#include "MessageBus.h"

namespace tamobench {

/** A bus that dbus-daemon serves, with a configuration that allows everything. */
class DaemonBus : public MessageBus
{
public:
    DaemonBus();
    std::string name() const override { return "dbus-daemon"; }

private:
    ChildProcess m_daemon;
};

} // namespace tamobench

#endif

// SPDX-License-Identifier: Apache-2.0
#ifndef TAMO_BENCH_BROKERBUS_H
#define TAMO_BENCH_BROKERBUS_H

#include "ChildProcess.h"
#include "MessageBus.h"

#include <memory>

namespace tamobench {

/**
 * A bus that dbus-broker serves. Its own launcher needs systemd; this class therefore does what the
 * launcher does, over the broker's controller socket: hands it a listening socket and a policy that
 * allows everything.
 */
class BrokerBus : public MessageBus
{
public:
    BrokerBus();
    ~BrokerBus() override;
    std::string name() const override { return "dbus-broker"; }

private:
    class Controller;
    std::unique_ptr<Controller> m_controller;
    ChildProcess m_broker;
};

} // namespace tamobench

#endif

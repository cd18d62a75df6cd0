// SPDX-License-Identifier: Apache-2.0
#ifndef TAMO_BENCH_BUSTRANSPORT_H
#define TAMO_BENCH_BUSTRANSPORT_H

#include "MessageBus.h"
#include "Transport.h"

namespace tamobench {

/**
 * A D-Bus signal with one string, broadcast through a message bus to the connections that have a
 * match rule for it. Sent and received with sd-bus, in as few calls as it takes: the message is
 * built beforehand, and no callback or vtable stands between the socket and the text.
 */
class BusTransport : public Transport
{
public:
    /** @param bus must outlive the transport */
    explicit BusTransport(const MessageBus& bus) : m_bus(bus) {}

    std::string name() const override { return m_bus.name(); }
    std::unique_ptr<Publisher> openPublisher() override;
    std::unique_ptr<Subscription> openSubscription() override;

private:
    const MessageBus& m_bus;
};

} // namespace tamobench

#endif

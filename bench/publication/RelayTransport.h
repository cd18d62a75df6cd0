// SPDX-License-Identifier: Apache-2.0
#ifndef TAMO_BENCH_RELAYTRANSPORT_H
#define TAMO_BENCH_RELAYTRANSPORT_H

#include "ChildProcess.h"
#include "Descriptor.h"
#include "SharedMemory.h"
#include "Transport.h"

#include <array>
#include <atomic>
#include <vector>

namespace tamobench {

/**
 * The floor: what any publication through a third process must cost on this machine. The text lies
 * in shared memory; the publisher wakes a relay through an eventfd, and that wakes each subscriber
 * through one. Nothing is parsed, stored or protected.
 */
class RelayTransport : public Transport
{
public:
    /** @param subscriptions how many can be opened, in whatever processes */
    explicit RelayTransport(std::size_t subscriptions);

    std::string name() const override { return "two wake-ups"; }
    std::unique_ptr<Publisher> openPublisher() override;
    std::unique_ptr<Subscription> openSubscription() override;

    /** The publication, as it lies in shared memory. */
    struct Slot
    {
        std::size_t length = 0;
        std::array<char, 16384> text = {};
    };

private:
    void relay();

    Descriptor m_published;
    std::vector<Descriptor> m_subscribers;
    SharedMemory<Slot> m_slot;
    SharedMemory<std::atomic<std::size_t>> m_opened;
    ChildProcess m_relay;
};

} // namespace tamobench

#endif

// SPDX-License-Identifier: Apache-2.0
#ifndef TAMO_BENCH_SUBSCRIBERGROUP_H
#define TAMO_BENCH_SUBSCRIBERGROUP_H

#include "ChildProcess.h"
#include "Descriptor.h"
#include "SharedMemory.h"
#include "Transport.h"

#include <array>
#include <atomic>
#include <cstdint>
#include <string>
#include <vector>

namespace tamobench {

/** Subscribers to one transport, in processes of their own, each with an epoll set. */
class SubscriberGroup
{
public:
    /**
     * Starts the processes and opens the publisher; returns when every subscription is open.
     *
     * @param transport must outlive the group
     */
    SubscriberGroup(Transport& transport, std::size_t processes, std::size_t subscriptionsEach);

    /**
     * Publishes one message of that many bytes, different from the last one, and waits until every
     * subscriber has read it. Throws where one reads anything else, or within ten seconds nothing.
     *
     * @param size from 32 to 16,000 bytes, as the subscriber reads it
     * @return nanoseconds from before the publication until after the last one's read
     */
    double publish(std::size_t size);

private:
    static constexpr std::size_t stampLength = 12;

    /** What the publisher and the subscribers share. */
    struct State
    {
        std::atomic<std::size_t> opened{0};
        std::atomic<std::size_t> unread{0};
        std::atomic<std::int64_t> lastRead{0};
        std::atomic<std::size_t> size{0};
        std::array<char, stampLength + 1> stamp = {};
    };

    void subscribe(std::size_t count);
    void take(Subscription& subscription);
    void awaitDone(const char* what);

    Transport& m_transport;
    const std::size_t m_size; ///< how many subscribers there are
    SharedMemory<State> m_state;
    Descriptor m_done;
    std::vector<ChildProcess> m_processes;
    std::unique_ptr<Publisher> m_publisher;
    std::uint32_t m_sequence = 0;
};

} // namespace tamobench

#endif

// SPDX-License-Identifier: Apache-2.0
#ifndef TAMO_BENCH_EVENTPLATFORM_H
#define TAMO_BENCH_EVENTPLATFORM_H

#include <zel/zel.h>

#include <atomic>
#include <condition_variable>
#include <functional>
#include <memory>
#include <mutex>

namespace tamomock {
class ZelApi;
}

namespace tamobench {

/**
 * The platform's event library as it is, and behind the library's seam what a benchmark needs to
 * know: the dispatch thread's channel, when that thread has gone, and when an orientation check is
 * answered. There is one at a time; it is installed as long as it lives.
 */
class EventPlatform
{
public:
    EventPlatform();
    ~EventPlatform();
    EventPlatform(const EventPlatform&) = delete;
    EventPlatform& operator=(const EventPlatform&) = delete;

    /** Pushes an event of the navigator's to the dispatch thread's channel; from any thread. */
    void push(int code);

    /** Pushes a report of the network's likewise. */
    void pushReport(bool isAvailable);

    /** Waits until the dispatch thread has been stopped this often. */
    void awaitStops(long count);

    /** Called on the dispatch thread when a check is answered; set before the first one. */
    std::function<void()> onCheckAnswered;

private:
    class Core;
    class Navigator;
    class NetStatus;

    void push(int domain, int code, const zel_event_payload_t* payload);
    void stopped();

    std::unique_ptr<tamomock::ZelApi> m_api;
    std::atomic<int> m_channel{0};
    std::mutex m_mutex;
    std::condition_variable m_stop;
    long m_stops = 0;
};

} // namespace tamobench

#endif

// SPDX-License-Identifier: Apache-2.0
#ifndef TAMOBOX_EVENTLOOP_H
#define TAMOBOX_EVENTLOOP_H

#include "Descriptor.h"

#include <chrono>
#include <functional>
#include <map>
#include <memory>

namespace tamobox {

/**
 * Waits for descriptors to become readable and calls back, in the one thread that runs it.
 * Callbacks may watch and unwatch any descriptor, their own included. A callback's exception leaves
 * run().
 */
class EventLoop
{
public:
    using Callback = std::function<void()>;
    using Clock = std::chrono::steady_clock;

    EventLoop();

    /**
     * Calls back whenever a descriptor is readable, hung up or in error.
     *
     * @param fd stays the caller's; unwatch() it before closing it
     */
    void watch(int fd, Callback callback);

    /** Ends the watching of a descriptor; one that is not watched is no error. */
    void unwatch(int fd);

    /** Waits and calls back until quit(). */
    void run();

    /**
     * Waits and calls back until a condition holds, which is asked before each waiting.
     *
     * @return whether it holds; false means that the time was over
     */
    bool runUntil(const std::function<bool()>& condition, Clock::time_point deadline);

    /** Makes run() return after the callback that is being called. */
    void quit() { m_quit = true; }

private:
    void dispatchOne(int timeoutMilliseconds);

    Descriptor m_epoll;
    std::map<int, std::shared_ptr<const Callback>> m_callbacks;
    bool m_quit = false;
};

} // namespace tamobox

#endif

// SPDX-License-Identifier: Apache-2.0
#include "EventLoop.h"

#include "Failure.h"

#include <sys/epoll.h>

#include <algorithm>
#include <cerrno>

namespace tamobox {

EventLoop::EventLoop() : m_epoll(epoll_create1(EPOLL_CLOEXEC))
{
    if (!m_epoll)
        throw systemFailure("cannot create an epoll set");
}

void EventLoop::watch(int fd, Callback callback)
{
    epoll_event event = {};
    event.events = EPOLLIN;
    event.data.fd = fd;
    if (epoll_ctl(m_epoll.get(), EPOLL_CTL_ADD, fd, &event) == -1)
        throw systemFailure("cannot watch a descriptor");
    m_callbacks[fd] = std::make_shared<const Callback>(std::move(callback));
}

void EventLoop::unwatch(int fd)
{
    if (m_callbacks.erase(fd) != 0)
        epoll_ctl(m_epoll.get(), EPOLL_CTL_DEL, fd, nullptr);
}

void EventLoop::run()
{
    m_quit = false;
    while (!m_quit)
        dispatchOne(-1);
}

bool EventLoop::runUntil(const std::function<bool()>& condition, Clock::time_point deadline)
{
    while (!condition()) {
        const auto left = std::chrono::ceil<std::chrono::milliseconds>(deadline - Clock::now());
        if (left.count() <= 0)
            return false;
        dispatchOne(static_cast<int>(std::min<long long>(left.count(), 60'000)));
    }
    return true;
}

void EventLoop::dispatchOne(int timeoutMilliseconds)
{
    // One event at a time: the callback for one may close the descriptor of the next. The kernel
    // takes turns among the ready ones, so that none is starved.
    epoll_event event = {};
    const int count = epoll_wait(m_epoll.get(), &event, 1, timeoutMilliseconds);
    if (count == -1 && errno != EINTR)
        throw systemFailure("cannot wait for events");
    if (count != 1)
        return;
    const auto found = m_callbacks.find(event.data.fd);
    if (found == m_callbacks.end())
        return;
    // The callback may unwatch itself while it runs.
    const std::shared_ptr<const Callback> callback = found->second;
    (*callback)();
}

} // namespace tamobox

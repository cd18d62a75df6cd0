// SPDX-License-Identifier: Apache-2.0
#include "SubscriberGroup.h"

#include "Clock.h"

#include <cstdio>
#include <stdexcept>

#include <poll.h>
#include <sys/epoll.h>
#include <sys/eventfd.h>

namespace tamobench {

namespace {

// What a subscriber of /pps reads begins with the object's name; every other transport carries the
// same bytes, so that all messages are equally long.
const std::string head = "@bench\n";
const std::string attribute = "value::";

} // namespace

SubscriberGroup::SubscriberGroup(Transport& transport, std::size_t processes,
                                 std::size_t subscriptionsEach)
    : m_transport(transport)
    , m_size(processes * subscriptionsEach)
    , m_done(::eventfd(0, EFD_CLOEXEC), "eventfd")
{
    for (std::size_t i = 0; i < processes; ++i)
        m_processes.emplace_back([this, subscriptionsEach] { subscribe(subscriptionsEach); });
    awaitDone("open its subscription");
    m_publisher = transport.openPublisher();
}

double SubscriberGroup::publish(std::size_t size)
{
    State& state = *m_state;
    std::snprintf(state.stamp.data(), state.stamp.size(), "%012u", ++m_sequence);
    std::string text = head + attribute + state.stamp.data();
    text.resize(size - 1, 'x');
    text += '\n';
    m_publisher->prepare(text);
    state.size = size;
    state.unread = m_size;

    const std::int64_t start = now();
    m_publisher->publish();
    awaitDone("read a publication");
    if (state.unread != 0 || state.lastRead < start)
        throw std::logic_error("the subscribers are out of step with the publisher");
    return static_cast<double>(state.lastRead - start);
}

void SubscriberGroup::awaitDone(const char* what)
{
    pollfd done = {m_done.get(), POLLIN, 0};
    if (::poll(&done, 1, 10'000) != 1)
        throw std::runtime_error("a subscriber through " + m_transport.name() + " does not " +
                                 what);
    eventfd_t count = 0;
    ::eventfd_read(m_done.get(), &count);
}

void SubscriberGroup::subscribe(std::size_t count)
{
    const Descriptor set(::epoll_create1(EPOLL_CLOEXEC), "epoll_create1");
    std::vector<std::unique_ptr<Subscription>> subscriptions;
    for (std::size_t i = 0; i < count; ++i) {
        subscriptions.push_back(m_transport.openSubscription());
        epoll_event event = {};
        // One message is read for each event, so that nothing needs to be asked again for.
        event.events = EPOLLIN | EPOLLET;
        event.data.ptr = subscriptions.back().get();
        if (::epoll_ctl(set.get(), EPOLL_CTL_ADD, subscriptions.back()->descriptor(), &event) < 0)
            throwErrno("epoll_ctl");
    }
    // Only the last one tells: a second event would be taken for the end of a publication.
    if ((m_state->opened += count) == m_size)
        ::eventfd_write(m_done.get(), 1);

    std::array<epoll_event, 64> events;
    for (;;) {
        const int ready = ::epoll_wait(set.get(), events.data(), events.size(), -1);
        if (ready < 0)
            throwErrno("epoll_wait");
        for (int i = 0; i < ready; ++i)
            take(*static_cast<Subscription*>(events[static_cast<std::size_t>(i)].data.ptr));
    }
}

void SubscriberGroup::take(Subscription& subscription)
{
    const std::string_view text = subscription.receive();
    const std::int64_t time = now();
    if (text.empty())
        return;
    State& state = *m_state;
    if (text.size() != state.size ||
        text.substr(head.size() + attribute.size(), stampLength) != state.stamp.data())
        throw std::runtime_error("a subscriber through " + m_transport.name() +
                                 " read something else than was published");
    if (--state.unread == 0) {
        state.lastRead = time;
        ::eventfd_write(m_done.get(), 1);
    }
}

} // namespace tamobench

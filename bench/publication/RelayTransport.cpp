// SPDX-License-Identifier: Apache-2.0
#include "RelayTransport.h"

#include <algorithm>
#include <stdexcept>

#include <sys/eventfd.h>

namespace tamobench {

namespace {

void wake(int eventDescriptor)
{
    if (::eventfd_write(eventDescriptor, 1) < 0)
        throwErrno("eventfd_write");
}

class RelayPublisher : public Publisher
{
public:
    RelayPublisher(int published, RelayTransport::Slot& slot) : m_published(published), m_slot(slot)
    {
    }

    void prepare(const std::string& text) override { m_text = text; }

    void publish() override
    {
        std::copy(m_text.begin(), m_text.end(), m_slot.text.begin());
        m_slot.length = m_text.size();
        wake(m_published);
    }

private:
    int m_published;
    RelayTransport::Slot& m_slot;
    std::string m_text;
};

class RelaySubscription : public Subscription
{
public:
    RelaySubscription(int descriptor, const RelayTransport::Slot& slot)
        : m_descriptor(descriptor), m_slot(slot)
    {
    }

    int descriptor() const override { return m_descriptor; }

    std::string_view receive() override
    {
        eventfd_t count = 0;
        if (::eventfd_read(m_descriptor, &count) < 0)
            throwErrno("eventfd_read");
        m_text.assign(m_slot.text.data(), m_slot.length);
        return m_text;
    }

private:
    int m_descriptor;
    const RelayTransport::Slot& m_slot;
    std::string m_text;
};

} // namespace

RelayTransport::RelayTransport(std::size_t subscriptions)
    : m_published(::eventfd(0, EFD_CLOEXEC), "eventfd")
{
    for (std::size_t i = 0; i < subscriptions; ++i)
        m_subscribers.emplace_back(::eventfd(0, EFD_CLOEXEC), "eventfd");
    m_relay = ChildProcess([this] { relay(); });
}

void RelayTransport::relay()
{
    for (;;) {
        eventfd_t count = 0;
        if (::eventfd_read(m_published.get(), &count) < 0)
            throwErrno("eventfd_read");
        for (const Descriptor& subscriber : m_subscribers)
            wake(subscriber.get());
    }
}

std::unique_ptr<Publisher> RelayTransport::openPublisher()
{
    return std::make_unique<RelayPublisher>(m_published.get(), *m_slot);
}

std::unique_ptr<Subscription> RelayTransport::openSubscription()
{
    const std::size_t index = m_opened->fetch_add(1);
    if (index >= m_subscribers.size())
        throw std::logic_error("more subscriptions than the relay was made for");
    return std::make_unique<RelaySubscription>(m_subscribers[index].get(), *m_slot);
}

} // namespace tamobench

// SPDX-License-Identifier: Apache-2.0
#include "Channel.h"

#include "ObjectWatch.h"

namespace zel {

Channel::Channel(int id, std::mutex& mutex) : m_id(id), m_mutex(mutex) {}

Channel::~Channel() = default;

Doorbell::Kind Channel::append(zel_event* event)
{
    m_queue.append(event);
    return std::exchange(m_sleepsOn, Doorbell::Kind::None);
}

void Channel::gather()
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    m_sleepsOn = Doorbell::Kind::None;
    m_gathered.append(m_queue);
}

EventPointer Channel::take()
{
    if (m_gathered.isEmpty())
        gather();
    EventPointer event = m_gathered.take();
    if (event)
        ++m_takenSinceLook;
    return event;
}

bool Channel::look()
{
    using What = DescriptorSet::Ready::What;
    m_takenSinceLook = 0;
    if (!m_descriptors.isOpen())
        return false;
    DescriptorSet::Ready ready;
    do
        ready = m_descriptors.wait(0);
    while (ready.what == What::Doorbell);
    if (ready.what == What::Nothing)
        return false;
    m_descriptors.handle(ready);
    return true;
}

bool Channel::wait(int timeoutMs)
{
    if (timeoutMs == 0)
        return look();
    const bool watches = watchedCount() != 0;
    {
        const std::lock_guard<std::mutex> lock(m_mutex);
        if (!m_queue.isEmpty())
            return false;
        m_doorbell.arm();
        m_sleepsOn = watches ? Doorbell::Kind::Descriptor : Doorbell::Kind::Futex;
    }
    DescriptorSet::Ready ready;
    if (watches)
        ready = m_descriptors.wait(timeoutMs);
    else
        m_doorbell.wait(timeoutMs);
    gather();
    if (ready.what != DescriptorSet::Ready::What::Descriptor)
        return false;
    m_takenSinceLook = 0;
    m_descriptors.handle(ready);
    return true;
}

void Channel::push(std::unique_ptr<zel_event> event)
{
    event->claim();
    const std::lock_guard<std::mutex> lock(m_mutex);
    append(event.release());
}

int Channel::watch(int fd, int ioEvents, DescriptorSet::Owner owner,
                   std::shared_ptr<DescriptorWatch> watch)
{
    if (!m_descriptors.isOpen()) {
        if (m_doorbell.descriptor() < 0) {
            if (const int error = m_doorbell.open())
                return error;
        }
        if (const int error = m_descriptors.open(m_doorbell.descriptor()))
            return error;
    }
    return m_descriptors.add(fd, ioEvents, owner, std::move(watch));
}

void Channel::close()
{
    m_isClosed = true;
    m_descriptors.clear();
    m_objects.clear();
    gather();
    m_gathered.clear();
}

void Channel::discard()
{
    m_isClosed = true;
    m_descriptors.clear();
    m_objects.clear();
    m_destroyHandlers.discard();
    m_queue.discard();
    m_gathered.discard();
}

} // namespace zel

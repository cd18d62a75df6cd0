// SPDX-License-Identifier: Apache-2.0
#include "DescriptorSet.h"

#include <zel/zel.h>

#include <sys/epoll.h>

#include <cerrno>
#include <utility>

namespace zel {
namespace {

constexpr std::uint64_t DoorbellKey = 0; // serials begin at 1

std::uint64_t keyOf(int fd, std::uint32_t serial)
{
    return std::uint64_t{serial} << 32 | static_cast<std::uint32_t>(fd);
}

std::uint32_t epollEvents(int ioEvents)
{
    return ((ioEvents & ZEL_IO_INPUT) ? std::uint32_t{EPOLLIN} : 0U) |
           ((ioEvents & ZEL_IO_OUTPUT) ? std::uint32_t{EPOLLOUT} : 0U);
}

int reported(std::uint32_t events, bool wantsInput)
{
    int ioEvents = 0;
    // A pipe whose other end has gone is hung up and has no input: reading it says so.
    if (events & EPOLLIN || (wantsInput && events & EPOLLHUP))
        ioEvents |= ZEL_IO_INPUT;
    if (events & EPOLLOUT)
        ioEvents |= ZEL_IO_OUTPUT;
    if (events & (EPOLLERR | EPOLLHUP))
        ioEvents |= ZEL_IO_EXCEPT;
    return ioEvents;
}

int addDoorbell(int epoll, int doorbell)
{
    epoll_event event{};
    event.events = EPOLLIN | EPOLLET;
    event.data.u64 = DoorbellKey;
    return epoll_ctl(epoll, EPOLL_CTL_ADD, doorbell, &event) == 0 ? 0 : errno;
}

} // namespace

int DescriptorSet::open(int doorbell)
{
    host::FileDescriptor epoll(epoll_create1(EPOLL_CLOEXEC));
    if (!epoll)
        return errno;
    if (const int error = addDoorbell(epoll.get(), doorbell))
        return error == ENOSPC ? ENOMEM : error;
    m_epoll = std::move(epoll);
    m_doorbell = doorbell;
    return 0;
}

int DescriptorSet::control(int epoll, int operation, int fd, const Entry& entry) const
{
    epoll_event event{};
    event.events = entry.events;
    event.data.u64 = keyOf(fd, entry.serial);
    return epoll_ctl(epoll, operation, fd, &event) == 0 ? 0 : errno;
}

int DescriptorSet::add(int fd, int ioEvents, Owner owner, std::shared_ptr<DescriptorWatch> watch)
{
    const auto known = m_entries.find(fd);
    if (known != m_entries.end()) {
        // A descriptor that was closed while watched has left the epoll set, and its number may
        // be another one's by now.
        if (control(m_epoll.get(), EPOLL_CTL_MOD, fd, known->second) == 0)
            return EEXIST;
        m_entries.erase(known);
    }
    Entry entry{std::move(watch), m_nextSerial, epollEvents(ioEvents), owner,
                (ioEvents & ZEL_IO_INPUT) != 0};
    if (++m_nextSerial == 0)
        m_nextSerial = 1;
    const auto added = m_entries.emplace(fd, std::move(entry)).first;
    if (const int error = control(m_epoll.get(), EPOLL_CTL_ADD, fd, added->second)) {
        m_entries.erase(added);
        return error == ENOSPC ? ENOMEM : error == ELOOP ? EINVAL : error;
    }
    return 0;
}

int DescriptorSet::remove(int fd, Owner owner)
{
    const auto entry = m_entries.find(fd);
    if (entry == m_entries.end() || entry->second.owner != owner)
        return ENOENT;
    epoll_ctl(m_epoll.get(), EPOLL_CTL_DEL, fd, nullptr); // fails where it was closed before
    const Entry removed = std::move(entry->second);
    m_entries.erase(entry);
    return 0;
}

DescriptorSet::Ready DescriptorSet::wait(int timeoutMs) const
{
    epoll_event event{};
    if (epoll_wait(m_epoll.get(), &event, 1, timeoutMs) != 1)
        return {};
    if (event.data.u64 == DoorbellKey)
        return {Ready::What::Doorbell, DoorbellKey, 0};
    return {Ready::What::Descriptor, event.data.u64, event.events};
}

void DescriptorSet::handle(const Ready& ready)
{
    const int fd = static_cast<int>(ready.key & UINT32_MAX);
    const auto found = m_entries.find(fd);
    if (found == m_entries.end() || keyOf(fd, found->second.serial) != ready.key) {
        renew();
        return;
    }
    const std::shared_ptr<DescriptorWatch> watch = found->second.watch;
    const Owner owner = found->second.owner;
    if (watch->ready(reported(ready.events, found->second.wantsInput)))
        return;
    const auto still = m_entries.find(fd);
    if (still != m_entries.end() && still->second.watch == watch)
        remove(fd, owner);
}

/**
 * Makes the epoll set anew. A descriptor that was closed before it was removed stays in the set
 * where it has a duplicate, cannot be taken out by its number, and would be reported for ever.
 */
void DescriptorSet::renew()
{
    host::FileDescriptor epoll(epoll_create1(EPOLL_CLOEXEC));
    if (!epoll || addDoorbell(epoll.get(), m_doorbell) != 0)
        return;
    for (auto entry = m_entries.begin(); entry != m_entries.end();) {
        if (control(epoll.get(), EPOLL_CTL_ADD, entry->first, entry->second) == 0)
            ++entry;
        else
            entry = m_entries.erase(entry);
    }
    m_epoll = std::move(epoll);
}

void DescriptorSet::clear()
{
    m_epoll.reset();
    const auto entries = std::move(m_entries);
    m_entries.clear();
}

} // namespace zel

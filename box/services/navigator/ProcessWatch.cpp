// SPDX-License-Identifier: Apache-2.0
#include "ProcessWatch.h"

#include <poll.h>
#include <sys/syscall.h>

#include <cerrno>
#include <csignal>

namespace tamobox {

namespace {

bool isReadable(int fd)
{
    pollfd entry = {fd, POLLIN, 0};
    return poll(&entry, 1, 0) == 1;
}

} // namespace

ProcessWatch::ProcessWatch(EventLoop& loop, EndHandler onEnd)
    : m_loop(loop), m_onEnd(std::move(onEnd))
{
}

ProcessWatch::~ProcessWatch()
{
    for (const auto& [process, descriptor] : m_descriptors)
        m_loop.unwatch(descriptor.get());
}

bool ProcessWatch::watch(pid_t process)
{
    if (m_descriptors.count(process) != 0)
        return !hasEnded(process);
    Descriptor descriptor(static_cast<int>(syscall(SYS_pidfd_open, process, 0)));
    if (!descriptor || isReadable(descriptor.get()))
        return false;
    m_loop.watch(descriptor.get(), [this, process] { end(process); });
    m_descriptors[process] = std::move(descriptor);
    return true;
}

bool ProcessWatch::hasEnded(pid_t process) const
{
    const auto found = m_descriptors.find(process);
    return found != m_descriptors.end() && isReadable(found->second.get());
}

void ProcessWatch::end(pid_t process)
{
    const auto found = m_descriptors.find(process);
    if (found == m_descriptors.end())
        return;
    m_loop.unwatch(found->second.get());
    m_descriptors.erase(found);
    m_onEnd(process);
}

int ProcessWatch::kill(pid_t process) const
{
    const auto found = m_descriptors.find(process);
    if (found == m_descriptors.end())
        return ESRCH;
    const long result = syscall(SYS_pidfd_send_signal, found->second.get(), SIGKILL, nullptr, 0);
    return result == -1 ? errno : 0;
}

} // namespace tamobox

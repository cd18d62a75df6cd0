// SPDX-License-Identifier: Apache-2.0
#include "PpsDescriptor.h"

#include <poll.h>
#include <unistd.h>

#include <cerrno>
#include <cstring>
#include <utility>

namespace tamotest {
namespace {

constexpr int TimeoutMs = 10'000;

bool waitUntil(int descriptor, short event)
{
    pollfd polled{descriptor, event, 0};
    return ::poll(&polled, 1, TimeoutMs) == 1 && (polled.revents & event);
}

} // namespace

PpsDescriptor::PpsDescriptor(const std::string& name, int flags, mode_t mode)
    : m_descriptor(::open(("/pps/" + name).c_str(), flags | O_CLOEXEC, mode))
    , m_error(m_descriptor < 0 ? errno : 0)
{
}

PpsDescriptor::PpsDescriptor(PpsDescriptor&& other) noexcept
    : m_descriptor(std::exchange(other.m_descriptor, -1)), m_error(other.m_error)
{
}

PpsDescriptor& PpsDescriptor::operator=(PpsDescriptor&& other) noexcept
{
    std::swap(m_descriptor, other.m_descriptor);
    std::swap(m_error, other.m_error);
    return *this;
}

void PpsDescriptor::close()
{
    if (m_descriptor >= 0)
        ::close(std::exchange(m_descriptor, -1));
}

std::string PpsDescriptor::read() const
{
    const ReadResult result = tryRead();
    return result.error ? std::string("error: ") + std::strerror(result.error) : result.text;
}

ReadResult PpsDescriptor::tryRead(std::size_t size) const
{
    std::string buffer(size, '\0');
    const ssize_t length = ::read(m_descriptor, buffer.data(), buffer.size());
    if (length < 0)
        return {errno, {}};
    buffer.resize(static_cast<std::size_t>(length));
    return {0, std::move(buffer)};
}

int PpsDescriptor::write(std::string_view text) const
{
    const ssize_t length = ::write(m_descriptor, text.data(), text.size());
    if (length < 0)
        return errno;
    return static_cast<std::size_t>(length) == text.size() ? 0 : EIO;
}

short PpsDescriptor::events() const
{
    pollfd polled{m_descriptor, POLLIN | POLLOUT | POLLRDNORM | POLLWRNORM | POLLPRI, 0};
    ::poll(&polled, 1, 0);
    return polled.revents;
}

bool PpsDescriptor::isReadable() const
{
    return (events() & (POLLIN | POLLRDNORM)) == (POLLIN | POLLRDNORM);
}

bool PpsDescriptor::isWritable() const
{
    return (events() & (POLLOUT | POLLWRNORM)) == (POLLOUT | POLLWRNORM);
}

bool PpsDescriptor::waitUntilReadable() const
{
    return waitUntil(m_descriptor, POLLIN);
}

bool PpsDescriptor::waitUntilWritable() const
{
    return waitUntil(m_descriptor, POLLOUT);
}

void PpsDescriptor::setNonBlocking(bool nonBlocking) const
{
    const int flags = fcntl(m_descriptor, F_GETFL);
    fcntl(m_descriptor, F_SETFL, nonBlocking ? flags | O_NONBLOCK : flags & ~O_NONBLOCK);
}

} // namespace tamotest

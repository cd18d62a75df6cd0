// SPDX-License-Identifier: Apache-2.0
#include "ServiceDescriptor.h"

#include <tamo/Exception.h>

#include <cerrno>
#include <fcntl.h>
#include <unistd.h>

namespace tamo {
namespace platform {

namespace {

template<class Call>
auto uninterrupted(Call call)
{
    auto result = call();
    while (result == -1 && errno == EINTR)
        result = call();
    return result;
}

} // namespace

ServiceDescriptor::ServiceDescriptor(const char* path, int flags)
    : m_fd(uninterrupted([=] { return ::open(path, flags | O_CLOEXEC); }))
{
    if (m_fd == -1)
        throw Exception();
}

ServiceDescriptor::~ServiceDescriptor()
{
    ::close(m_fd);
}

ssize_t ServiceDescriptor::read(char* buffer, std::size_t size) const
{
    return uninterrupted([=] { return ::read(m_fd, buffer, size); });
}

void ServiceDescriptor::write(const char* data, std::size_t size) const
{
    if (uninterrupted([=] { return ::write(m_fd, data, size); }) != static_cast<ssize_t>(size))
        throw Exception();
}

} // namespace platform
} // namespace tamo

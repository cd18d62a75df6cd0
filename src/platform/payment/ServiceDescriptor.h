// SPDX-License-Identifier: Apache-2.0
#ifndef TAMO_PLATFORM_PAYMENT_SERVICEDESCRIPTOR_H
#define TAMO_PLATFORM_PAYMENT_SERVICEDESCRIPTOR_H

#include <cstddef>
#include <sys/types.h>

namespace tamo {
namespace platform {

/** An open file, closed at the end. An interrupted call is made again. */
class ServiceDescriptor
{
public:
    /** @throws tamo::Exception where it cannot be opened */
    ServiceDescriptor(const char* path, int flags);

    /** Takes a descriptor over. */
    explicit ServiceDescriptor(int fd) : m_fd(fd) {}
    ServiceDescriptor(const ServiceDescriptor&) = delete;
    ServiceDescriptor& operator=(const ServiceDescriptor&) = delete;
    ~ServiceDescriptor();

    int get() const { return m_fd; }

    /** As read(2). */
    ssize_t read(char* buffer, std::size_t size) const;

    /** @throws tamo::Exception where not everything could be written at once */
    void write(const char* data, std::size_t size) const;

private:
    const int m_fd;
};

} // namespace platform
} // namespace tamo

#endif

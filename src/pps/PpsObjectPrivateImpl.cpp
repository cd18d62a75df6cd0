// SPDX-License-Identifier: Apache-2.0
#include "PpsObjectPrivateImpl.h"

#include <cerrno>
#include <fcntl.h>
#include <poll.h>
#include <unistd.h>

namespace tamo {

PpsObjectPrivateImpl::~PpsObjectPrivateImpl()
{
    delete notifier;
}

void PpsObjectPrivateImpl::createNotifier(int fd, QSocketNotifier::Type type)
{
    deleteNotifier();
    m_fruitless = false;
    notifier = new QSocketNotifier(fd, type);
    // Made before any receiver's connection, so that it runs before a receiver can delete the
    // object.
    QObject::connect(notifier, &QSocketNotifier::activated, notifier,
                     [this] { restNotifierOnDeadDescriptor(); });
}

void PpsObjectPrivateImpl::deleteNotifier()
{
    delete notifier;
    notifier = nullptr;
}

void PpsObjectPrivateImpl::setNotifierEnabled(bool enable)
{
    notifier->setEnabled(enable);
}

bool PpsObjectPrivateImpl::connect(const char* signal, QObject* receiver, const char* member)
{
    return QObject::connect(notifier, signal, receiver, member);
}

int PpsObjectPrivateImpl::lastError() const
{
    return errno;
}

int PpsObjectPrivateImpl::open(const char* file, int flags, mode_t mode)
{
    return ::open(file, flags, mode);
}

int PpsObjectPrivateImpl::close(int fd)
{
    return ::close(fd);
}

ssize_t PpsObjectPrivateImpl::read(int fd, void* buffer, size_t size)
{
    const ssize_t count = ::read(fd, buffer, size);
    if (count > 0)
        m_fruitless = false;
    return count;
}

ssize_t PpsObjectPrivateImpl::write(int fd, const void* buffer, size_t size)
{
    return ::write(fd, buffer, size);
}

int PpsObjectPrivateImpl::fcntl(int fd, int command)
{
    return ::fcntl(fd, command);
}

int PpsObjectPrivateImpl::fcntl(int fd, int command, int argument)
{
    return ::fcntl(fd, command, argument);
}

int PpsObjectPrivateImpl::unlink(const char* file)
{
    return ::unlink(file);
}

// When the filesystem ends, its descriptors report an error for ever. The notifier takes that for
// readability and would keep the event loop busy without end, whether or not anybody reads. A
// receiver that has merely not read yet looks the same, so the descriptor itself is asked; in
// ordinary life, where each activation is answered by a read, that costs nothing.
void PpsObjectPrivateImpl::restNotifierOnDeadDescriptor()
{
    if (!m_fruitless) {
        m_fruitless = true;
        return;
    }
    pollfd state = {descriptor, 0, 0};
    if (::poll(&state, 1, 0) == 1)
        notifier->setEnabled(false);
}

} // namespace tamo

// SPDX-License-Identifier: Apache-2.0
#include <tamo/PpsObject.h>

#include "PpsObjectPrivateImpl.h"
#include "Utf8Buffer.h"

#include <QtCore/QEvent>

#include <cerrno>
#include <fcntl.h>
#include <limits>
#include <new>

namespace tamo {

namespace {

constexpr mode_t creationMode = 0666;
constexpr qint64 firstBufferSize = 1024;

int accessMode(PpsObject::OpenMode mode)
{
    if (!mode.testFlag(PpsObject::Publish))
        return O_RDONLY;
    return mode.testFlag(PpsObject::Subscribe) ? O_RDWR : O_WRONLY;
}

int systemFlags(PpsObject::OpenMode mode)
{
    int flags = accessMode(mode);
    if (mode.testFlag(PpsObject::Create))
        flags |= O_CREAT | O_EXCL;
    if (mode.testFlag(PpsObject::Truncate))
        flags |= O_TRUNC;
    return flags;
}

/** Resizes an array; returns 0, or the error that says why it cannot be that large. */
int resize(QByteArray& data, qint64 size)
{
    using Size = decltype(data.size());
    if (size > std::numeric_limits<Size>::max())
        return EMSGSIZE;
    try {
        data.resize(static_cast<Size>(size));
        return 0;
    } catch (const std::bad_alloc&) {
        return ENOMEM;
    }
}

/** Reads one message into an array that grows until it fits. Returns as read(2). */
ssize_t readMessage(PpsObjectPrivate& d, QByteArray& data)
{
    for (qint64 size = firstBufferSize;; size *= 2) {
        d.error = resize(data, size);
        if (d.error != 0)
            return -1;
        const ssize_t count = d.read(d.descriptor, data.data(), static_cast<size_t>(size));
        if (count != -1)
            return count;
        d.error = d.lastError();
        if (d.error != EMSGSIZE)
            return -1;
    }
}

} // namespace

PpsObject::PpsObject(const QString& path, QObject* parent)
    : PpsObject(std::make_unique<PpsObjectPrivateImpl>(path), parent)
{
}

PpsObject::PpsObject(std::unique_ptr<PpsObjectPrivate> substitute, QObject* parent)
    : QObject(parent), d(std::move(substitute))
{
}

PpsObject::~PpsObject()
{
    if (isOpen())
        close();
}

bool PpsObject::open(OpenMode mode)
{
    d->error = 0;
    if (isOpen()) {
        d->error = EBUSY;
        return false;
    }
    Utf8Buffer utf8;
    const char* const path = utf8.convert(d->path);
    if (path == nullptr) {
        d->error = EINVAL;
        return false;
    }
    const int descriptor = d->open(path, systemFlags(mode), creationMode);
    if (descriptor == -1) {
        d->error = d->lastError();
        return false;
    }
    d->descriptor = descriptor;
    d->createNotifier(descriptor, QSocketNotifier::Read);
    d->setNotifierEnabled(d->readyReadEnabled);
    d->connect(SIGNAL(activated(int)), this, SIGNAL(readyRead()));
    return true;
}

bool PpsObject::close()
{
    d->error = 0;
    if (!isOpen()) {
        d->error = EBADF;
        return false;
    }
    d->deleteNotifier();
    const int result = d->close(d->descriptor);
    d->descriptor = -1;
    if (result == -1)
        d->error = d->lastError();
    return result != -1;
}

bool PpsObject::isOpen() const
{
    return d->descriptor != -1;
}

bool PpsObject::read(QByteArray& data)
{
    d->error = 0;
    if (!isOpen()) {
        d->error = EBADF;
        return false;
    }
    const ssize_t count = readMessage(*d, data);
    if (count > 0) {
        data.resize(static_cast<decltype(data.size())>(count));
        return true;
    }
    data.resize(0);
    if (count == 0)
        d->error = EAGAIN;
    return false;
}

int PpsObject::write(const QByteArray& data)
{
    d->error = 0;
    if (!isOpen()) {
        d->error = EBADF;
        return -1;
    }
    const ssize_t count =
        d->write(d->descriptor, data.constData(), static_cast<size_t>(data.size()));
    if (count == -1)
        d->error = d->lastError();
    return static_cast<int>(count);
}

bool PpsObject::remove()
{
    d->error = 0;
    Utf8Buffer utf8;
    const char* const path = utf8.convert(d->path);
    if (path == nullptr)
        d->error = EINVAL;
    else if (d->unlink(path) != 0)
        d->error = d->lastError();
    return d->error == 0;
}

bool PpsObject::setBlocking(bool blocking)
{
    d->error = 0;
    if (!isOpen()) {
        d->error = EBADF;
        return false;
    }
    const int flags = d->fcntl(d->descriptor, F_GETFL);
    if (flags == -1) {
        d->error = d->lastError();
        return false;
    }
    const int newFlags = blocking ? flags & ~O_NONBLOCK : flags | O_NONBLOCK;
    if (d->fcntl(d->descriptor, F_SETFL, newFlags) == -1) {
        d->error = d->lastError();
        return false;
    }
    return true;
}

bool PpsObject::isBlocking() const
{
    d->error = 0;
    if (!isOpen()) {
        d->error = EBADF;
        return false;
    }
    const int flags = d->fcntl(d->descriptor, F_GETFL);
    if (flags == -1) {
        d->error = d->lastError();
        return false;
    }
    return (flags & O_NONBLOCK) == 0;
}

bool PpsObject::isReadyReadEnabled() const
{
    return d->readyReadEnabled;
}

void PpsObject::setReadyReadEnabled(bool enable)
{
    d->readyReadEnabled = enable;
    if (isOpen())
        d->setNotifierEnabled(enable);
}

int PpsObject::error() const
{
    return d->error;
}

bool PpsObject::event(QEvent* event)
{
    // Sent before the move, which takes the children along.
    if (event->type() == QEvent::ThreadChange && d->notifier)
        d->notifier->setParent(this);
    return QObject::event(event);
}

} // namespace tamo

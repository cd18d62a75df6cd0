// SPDX-License-Identifier: Apache-2.0
#include "NavigatorControl.h"

#include "core/NeverDestroyed.h"

#include <fcntl.h>
#include <pthread.h>
#include <unistd.h>

#include <atomic>
#include <cerrno>
#include <new>

namespace zel {
namespace {

std::atomic<NavigatorControl*> forkingControl{nullptr};

constexpr char ControlPath[] = "/pps/services/navigator/control";

int openError(int error)
{
    const bool isDead =
        error == ENOTCONN || error == ENODEV || error == ECONNABORTED || error == ENOTDIR;
    return isDead ? ENOENT : error;
}

/** Whether a descriptor is of no use any more: `/pps` has died, or the object was removed, and
 * there may be another one. */
bool isUseless(int error)
{
    return error == ENOTCONN || error == ENODEV || error == ECONNABORTED || error == ENOENT;
}

int writeWhole(int descriptor, const char* text, std::size_t length)
{
    ssize_t written;
    do
        written = ::write(descriptor, text, length);
    while (written < 0 && errno == EINTR);
    if (written < 0)
        return errno;
    return static_cast<std::size_t>(written) == length ? 0 : EIO;
}

} // namespace

NavigatorControl& NavigatorControl::instance()
{
    static NeverDestroyed<NavigatorControl> control;
    return *control;
}

NavigatorControl::NavigatorControl()
{
    forkingControl.store(this);
    // The lock is not waited for before fork(): who holds it waits for /pps, which may be stuck.
    pthread_atfork(nullptr, nullptr, &NavigatorControl::resetInChild);
}

void NavigatorControl::resetInChild()
{
    NavigatorControl& control = *forkingControl.load();
    new (&control.m_mutex) std::mutex; // whoever held it is not in this process
    control.m_descriptor.reset();      // to the navigator it is the parent's
}

int NavigatorControl::send(const char* text, std::size_t length)
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    for (;;) {
        const bool isNew = !m_descriptor;
        if (isNew)
            m_descriptor =
                host::FileDescriptor(::open(ControlPath, O_WRONLY | O_NONBLOCK | O_CLOEXEC));
        if (!m_descriptor)
            return openError(errno);
        const int error = writeWhole(m_descriptor.get(), text, length);
        if (!isUseless(error))
            return error;
        m_descriptor.reset();
        if (isNew)
            return ENOENT;
    }
}

} // namespace zel

// SPDX-License-Identifier: Apache-2.0
#include "OpenFile.h"

#include "Object.h"
#include "WakeList.h"

#include <poll.h>

#include <algorithm>
#include <cerrno>
#include <utility>

namespace ppsfs {

OpenFile::~OpenFile()
{
    m_handle.reset();
    m_expected.done(m_mark);
    if (m_woken)
        m_wakeList.remove(*this);
    for (const WaitingRead& waiting : m_waiting)
        fuse_reply_err(waiting.request, ENOTCONN);
}

int OpenFile::open(std::shared_ptr<Object> object, const OpenMode& mode, const Opener& opener)
{
    return Handle::open(std::move(object), mode, opener, *this, m_handle);
}

void OpenFile::read(fuse_req_t request, std::size_t size, bool nonBlocking)
{
    m_expected.done(m_mark);
    if (answer(request, size))
        return;
    if (!m_handle->waits()) {
        fuse_reply_buf(request, nullptr, 0);
    } else if (nonBlocking) {
        fuse_reply_err(request, EAGAIN);
    } else if (fuse_req_interrupted(request)) {
        // The library would call interrupt() from inside its registration, and then use the
        // request.
        fuse_reply_err(request, EINTR);
    } else {
        m_waiting.push_back({request, size});
        fuse_req_interrupt_func(request, &OpenFile::interrupt, this);
    }
}

void OpenFile::poll(fuse_req_t request, fuse_pollhandle* notification)
{
    if (notification)
        m_notification.reset(notification);
    unsigned events = 0;
    const bool readable = m_handle->isReadable();
    if (readable)
        events |= POLLIN | POLLRDNORM;
    if (m_handle->isWritable())
        events |= POLLOUT | POLLWRNORM;
    fuse_reply_poll(request, events);
    if (readable)
        m_expected.expect(m_mark);
    else
        m_expected.done(m_mark);
}

void OpenFile::wake()
{
    if (!std::exchange(m_woken, true))
        m_wakeList.add(*this);
}

void OpenFile::serveWaiting()
{
    m_woken = false;
    while (!m_waiting.empty()) {
        const WaitingRead waiting = m_waiting.front();
        if (!m_handle->isReadable() && m_handle->waits())
            break;
        m_waiting.pop_front();
        if (!answer(waiting.request, waiting.size))
            fuse_reply_buf(waiting.request, nullptr, 0);
    }
    // Once is enough until the kernel has asked again: it wakes everybody who polls, and each of
    // them asks anew.
    if (const auto notification = std::move(m_notification)) {
        fuse_lowlevel_notify_poll(notification.get());
        m_expected.expect(m_mark);
    }
}

bool OpenFile::answer(fuse_req_t request, std::size_t size)
{
    const std::string_view message = m_handle->message();
    if (message.empty())
        return false;
    if (message.size() > size)
        fuse_reply_err(request, EMSGSIZE);
    else if (fuse_reply_buf(request, message.data(), message.size()) == 0)
        m_handle->consume();
    return true;
}

void OpenFile::interrupt(fuse_req_t request, void* file)
{
    auto& waiting = static_cast<OpenFile*>(file)->m_waiting;
    const auto found =
        std::find_if(waiting.begin(), waiting.end(),
                     [request](const WaitingRead& read) { return read.request == request; });
    if (found == waiting.end())
        return;
    waiting.erase(found);
    fuse_reply_err(request, EINTR);
}

} // namespace ppsfs

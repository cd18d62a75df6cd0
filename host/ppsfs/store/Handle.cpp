// SPDX-License-Identifier: Apache-2.0
#include "Handle.h"

#include "Endpoint.h"
#include "Limits.h"
#include "Listener.h"
#include "Object.h"

#include <cerrno>
#include <utility>

namespace ppsfs {

int Handle::open(std::shared_ptr<Object> object, const OpenMode& mode, const Opener& opener,
                 Listener& listener, std::unique_ptr<Handle>& handle)
{
    if (object->isRemoved())
        return ENOENT;
    if (const int error = mode.check())
        return error;
    if (mode.serves() && object->isServed())
        return EBUSY;
    handle.reset(new Handle(std::move(object), mode, opener, listener));
    return 0;
}

Handle::Handle(std::shared_ptr<Object> object, const OpenMode& mode, const Opener& opener,
               Listener& listener)
    : m_object(std::move(object)), m_mode(mode), m_opener(opener), m_listener(listener)
{
    m_object->attach(*this);
}

Handle::~Handle()
{
    m_object->detach(*this);
}

bool Handle::isReadable() const
{
    return hasEndpointMessage() || m_removal == Removal::Unread;
}

bool Handle::isWritable() const
{
    return m_mode.writes && (m_removal != Removal::None || m_endpoint->hasRoom());
}

bool Handle::waits() const
{
    return (m_mode.options & WaitOption) && m_removal == Removal::None;
}

std::string_view Handle::message()
{
    if (hasEndpointMessage())
        return m_endpoint->message();
    return m_removal == Removal::Unread ? m_object->m_topic.removal() : std::string_view();
}

void Handle::consume()
{
    if (hasEndpointMessage())
        m_endpoint->consume();
    else
        m_removal = Removal::Read;
}

int Handle::write(std::string_view text)
{
    if (m_removal != Removal::None)
        return ENOENT;
    if (text.size() > limits::TextSize)
        return EFBIG;
    if (const int error = m_endpoint->write(text, m_mode.truncates))
        return error;
    m_mode.truncates = false;
    m_object->status().modified = timeStamp();
    return 0;
}

void Handle::objectRemoved()
{
    // A mailbox's messages stay readable; what was published has gone with its object.
    if (!m_object->isMailbox())
        m_endpoint.reset();
    m_removal = m_mode.reads ? Removal::Unread : Removal::Read;
    m_listener.wake();
}

bool Handle::hasEndpointMessage() const
{
    return m_endpoint && m_endpoint->hasMessage();
}

} // namespace ppsfs

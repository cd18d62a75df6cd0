// SPDX-License-Identifier: Apache-2.0
#include "Object.h"

#include "Handle.h"
#include "MailboxClient.h"
#include "MailboxServer.h"
#include "ObjectName.h"
#include "Subscription.h"

#include <utility>

namespace ppsfs {

Object::Object(std::uint64_t number, std::string name, const NodeStatus& status)
    : Node(number, std::move(name), status), m_topic(headingOf(Node::name()))
{
}

void Object::attach(Handle& handle)
{
    if (handle.mode().serves() && !m_mailbox)
        becomeMailbox();
    handle.m_endpoint = endpointFor(handle);
    handle.m_place = m_handles.size();
    m_handles.push_back(&handle);
}

void Object::detach(Handle& handle)
{
    handle.m_endpoint.reset();
    m_handles.back()->m_place = handle.m_place;
    m_handles[handle.m_place] = m_handles.back();
    m_handles.pop_back();
}

std::unique_ptr<Endpoint> Object::endpointFor(Handle& handle)
{
    const OpenMode& mode = handle.mode();
    Listener& listener = handle.m_listener;
    if (!m_mailbox) {
        const bool changes = (mode.options & ChangesOption) != 0;
        return std::make_unique<Subscription>(m_topic, listener, mode.reads, changes);
    }
    if (mode.serves())
        return std::make_unique<MailboxServer>(*m_mailbox, listener);
    return std::make_unique<MailboxClient>(*m_mailbox, listener, handle.m_opener, mode.reads);
}

void Object::becomeMailbox()
{
    m_mailbox = std::make_unique<Mailbox>(m_topic.heading());
    for (Handle* const handle : m_handles)
        handle->m_endpoint = endpointFor(*handle);
    m_topic.clear();
}

void Object::remove()
{
    setRemoved();
    if (m_mailbox)
        m_mailbox->close();
    for (Handle* const handle : m_handles)
        handle->objectRemoved();
    m_topic.clear();
}

} // namespace ppsfs

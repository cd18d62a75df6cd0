// SPDX-License-Identifier: Apache-2.0
#include "MailboxServer.h"

#include <fcntl.h>

#include <cerrno>
#include <charconv>
#include <optional>

namespace tamobox {

namespace {

std::optional<MailboxServer::Client> clientIn(const std::string& memberName,
                                              const std::string& prefix)
{
    if (memberName.rfind(prefix, 0) != 0)
        return std::nullopt;
    MailboxServer::Client client = 0;
    const char* const end = memberName.data() + memberName.size();
    const auto result = std::from_chars(memberName.data() + prefix.size(), end, client);
    if (result.ec != std::errc() || result.ptr != end)
        return std::nullopt;
    return client;
}

} // namespace

MailboxServer::MailboxServer(EventLoop& loop, const std::string& object, RequestHandler onRequest,
                             LeaveHandler onLeave, ArrivalHandler onArrival)
    : m_loop(loop)
    , m_name(object.substr(object.rfind('/') + 1))
    , m_file(object, O_RDWR | O_NONBLOCK, "serve")
    , m_onRequest(std::move(onRequest))
    , m_onLeave(std::move(onLeave))
    , m_onArrival(std::move(onArrival))
{
    m_loop.watch(m_file.descriptor(), [this] { handOutNext(); });
}

MailboxServer::~MailboxServer()
{
    m_loop.unwatch(m_file.descriptor());
}

void MailboxServer::address(MessageWriter& answer, Client client) const
{
    answer.object(m_name + '.' + std::to_string(client));
}

MailboxServer::Delivery MailboxServer::send(const std::string& answer)
{
    try {
        m_file.write(answer);
        return Delivery::Sent;
    } catch (const ObjectFailure& failure) {
        if (failure.error() == ENOENT)
            return Delivery::Gone;
        if (failure.error() == EAGAIN)
            return Delivery::Full;
        throw;
    }
}

// One message at a time, so that timers come between the messages of a flood.
bool MailboxServer::handOutNext()
{
    const std::optional<std::string> message = m_file.read();
    if (!message)
        return false;
    m_currentMessage = *message;
    MessageReader reader(*message);
    const std::string prefix = '@' + m_name + '.';
    while (reader.next()) {
        const std::string name = reader.name();
        const pps_type_t type = reader.type();
        const bool comes = name[0] == '+';
        const std::optional<Client> client = clientIn(comes ? name.substr(1) : name, prefix);
        if (!client)
            continue;
        if (type == PPS_TYPE_DELETED) {
            m_onLeave(*client);
        } else if (reader.enter(nullptr)) {
            if (!comes)
                m_onRequest(*client, reader);
            else if (m_onArrival)
                m_onArrival(*client, reader.integer("pid").value_or(0));
            reader.leave();
        }
    }
    return true;
}

} // namespace tamobox

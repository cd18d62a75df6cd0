// SPDX-License-Identifier: Apache-2.0
#include "ApplicationMailbox.h"

#include "ProcessName.h"

#include "common/Failure.h"

namespace tamobox {

namespace {

constexpr int floodBegins = 16'384; // messages

} // namespace

ApplicationMailbox::ApplicationMailbox(EventLoop& loop, const std::string& object,
                                       Complaints& complaints,
                                       std::map<std::string, Handler> requests,
                                       LeaveHandler onLeave)
    : m_object(object)
    , m_complaints(complaints)
    , m_requests(std::move(requests))
    , m_onLeave(std::move(onLeave))
    , m_server(
          loop, object,
          [this](MailboxServer::Client client, MessageReader& request) { handle(client, request); },
          [this](MailboxServer::Client client) {
              m_clients.erase(client);
              m_onLeave(client);
          },
          [this](MailboxServer::Client client, pid_t process) {
              m_clients[client] = {client, process,
                                   process == 0 ? std::string() : processName(process)};
          })
{
}

void ApplicationMailbox::catchUp()
{
    for (int i = 0; i < floodBegins && m_server.handOutNext(); ++i) {
    }
}

bool ApplicationMailbox::isThere(MailboxServer::Client client, pid_t process) const
{
    const auto found = m_clients.find(client);
    return found != m_clients.end() && found->second.process == process;
}

MailboxServer::Delivery ApplicationMailbox::tell(MailboxServer::Client client, const char* message,
                                                 const std::function<void(MessageWriter&)>& fill)
{
    MessageWriter writer;
    m_server.address(writer, client);
    writer.add("msg", message).startObject("dat");
    fill(writer);
    writer.endObject();
    return m_server.send(writer);
}

void ApplicationMailbox::handle(MailboxServer::Client number, MessageReader& request)
{
    const auto found = m_clients.find(number);
    if (found == m_clients.end())
        return;
    const ApplicationClient& client = found->second;
    try {
        carryOut(client, request);
    } catch (const ObjectFailure&) {
        throw; // the service's own objects fail, which is not the client's doing
    } catch (const Failure& failure) {
        m_complaints.add("a request of " + processText(client.process, client.application) +
                         " to " + m_object + " has no effect: " + failure.what());
    }
}

void ApplicationMailbox::carryOut(const ApplicationClient& client, MessageReader& request)
{
    const std::optional<std::string> name = request.string("msg");
    if (!name)
        throw Failure("msg is missing");
    const auto handler = m_requests.find(*name);
    if (handler == m_requests.end())
        throw Failure("there is no request " + quoted(*name));
    if (!request.enter("dat"))
        throw Failure("dat must be an object");
    try {
        handler->second(client, request);
    } catch (...) {
        request.leave();
        throw;
    }
    request.leave();
}

std::string processText(pid_t process, const std::string& application)
{
    if (process == 0)
        return "a process outside the box";
    return "process " + std::to_string(process) +
           (application.empty() ? std::string() : " (" + application + ')');
}

} // namespace tamobox

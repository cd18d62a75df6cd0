// SPDX-License-Identifier: Apache-2.0
#include "RequestMailbox.h"

#include "services/ProcessName.h"
#include "services/RequestValues.h"

#include <charconv>

namespace tamobox {

namespace {

constexpr int floodBegins = 16'384; // messages
constexpr std::size_t longestId = 64;
constexpr std::size_t longestName = 256;

} // namespace

RequestMailbox::RequestMailbox(EventLoop& loop, const std::string& object, Complaints& complaints,
                               Handler onRequest, LeaveHandler onLeave)
    : m_object(object)
    , m_complaints(complaints)
    , m_onRequest(std::move(onRequest))
    , m_server(
          loop, object,
          [this](MailboxServer::Client client, MessageReader& request) {
              handle(client, request, m_server.currentMessage(), {});
          },
          [this, onLeave = std::move(onLeave)](MailboxServer::Client client) {
              m_clients.erase(client);
              m_outboxes.clientLeft(client);
              onLeave(client);
          },
          [this](MailboxServer::Client client, pid_t process) {
              m_clients[client] = {client, process,
                                   process == 0 ? std::string() : processName(process)};
          })
    , m_outboxes(loop, [this](const std::string& message) { return m_server.send(message); })
{
}

void RequestMailbox::catchUp()
{
    for (int i = 0; i < floodBegins && m_server.handOutNext(); ++i) {
    }
}

void RequestMailbox::handOutAgain(int number, const std::string& text)
{
    try {
        MessageReader reader(text);
        if (!reader.next())
            return;
        const std::string name = reader.name();
        MailboxServer::Client client = 0;
        std::from_chars(name.data() + name.rfind('.') + 1, name.data() + name.size(), client);
        if (reader.enter(nullptr))
            handle(client, reader, text, number);
    } catch (const ObjectFailure&) {
        throw;
    } catch (const Failure& failure) {
        m_complaints.add("the kept request " + std::to_string(number) +
                         " is forgotten: " + failure.what());
    }
}

bool RequestMailbox::send(const ApplicationClient& client,
                          const std::function<void(MessageWriter&)>& fill)
{
    MessageWriter message;
    m_server.address(message, client.number);
    fill(message);
    const auto delivery = m_outboxes.send(client.number, message.text());
    if (delivery == MailboxServer::Delivery::Full)
        m_complaints.add("an answer to " + processText(client.process, client.application) +
                         " is lost: it does not read what it is sent, and no more of it is kept");
    return delivery == MailboxServer::Delivery::Sent;
}

void RequestMailbox::handle(MailboxServer::Client number, MessageReader& request,
                            const std::string& text, std::optional<int> requestNumber)
{
    const auto found = m_clients.find(number);
    if (found == m_clients.end())
        return;
    const ApplicationClient client = found->second;
    m_outboxes.tryNow(number); // who asks may have read meanwhile
    try {
        Envelope envelope{client, requiredText(request, "msg", longestName),
                          requiredText(request, "id", longestId), requestNumber};
        if (envelope.id.empty())
            throw Failure("id must not be empty");
        m_onRequest(envelope, request, text);
    } catch (const ObjectFailure&) {
        throw; // the service's own objects fail, which is not the client's doing
    } catch (const Failure& failure) {
        m_complaints.add("a request of " + processText(client.process, client.application) +
                         " to " + m_object + " has no effect: " + failure.what());
    }
}

} // namespace tamobox

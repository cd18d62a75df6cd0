// SPDX-License-Identifier: Apache-2.0
#include "ControlMailbox.h"

#include "common/Failure.h"

namespace tamobox {

namespace {

// An answer may carry them, and has to find room in a message.
constexpr std::size_t longestId = 256; // bytes; also of a command that there is not

} // namespace

ControlMailbox::ControlMailbox(EventLoop& loop, const std::string& object,
                               std::map<std::string, Command> commands,
                               MailboxServer::LeaveHandler onLeave)
    : m_commands(std::move(commands))
    , m_server(
          loop, object,
          [this](MailboxServer::Client client, MessageReader& request) { handle(client, request); },
          std::move(onLeave))
{
}

void ControlMailbox::accept(const ControlRequest& request)
{
    MessageWriter answer;
    m_server.address(answer, request.client);
    answer.add("id", request.id).add("res", "ok");
    m_server.send(answer);
}

void ControlMailbox::refuse(const ControlRequest& request, const std::string& text)
{
    MessageWriter answer;
    m_server.address(answer, request.client);
    answer.add("id", request.id).add("res", "error").add("text", text);
    m_server.send(answer);
}

void ControlMailbox::report(const ControlRequest& request,
                            const std::function<void(MessageWriter&)>& fill)
{
    MessageWriter message;
    m_server.address(message, request.client);
    message.add("id", request.id).add("msg", "progress").startObject("dat");
    fill(message);
    message.endObject();
    m_server.send(message);
}

void ControlMailbox::handle(MailboxServer::Client client, MessageReader& message)
{
    ControlRequest request = {client, message.string("id").value_or("")};
    try {
        if (request.id.size() > longestId) {
            request.id.clear();
            throw Failure("the id must be at most " + std::to_string(longestId) + " bytes long");
        }
        if (carryOut(request, message) == Outcome::Done)
            accept(request);
    } catch (const ObjectFailure&) {
        throw; // the service's own objects fail, which is not the client's doing
    } catch (const Failure& failure) {
        refuse(request, failure.what());
    }
}

ControlMailbox::Outcome ControlMailbox::carryOut(const ControlRequest& request,
                                                 MessageReader& message)
{
    const std::optional<std::string> name = message.string("msg");
    if (!name)
        throw Failure("a request needs a command in msg");
    const auto command = m_commands.find(*name);
    if (command == m_commands.end()) {
        std::string known;
        for (const auto& [knownName, ignored] : m_commands)
            known += (known.empty() ? "" : ", ") + knownName;
        throw Failure((name->size() > longestId ? "there is no such command"
                                                : "there is no command '" + *name + '\'') +
                      "; there are: " + known);
    }
    if (!message.has("dat"))
        return command->second(request, message);
    if (!message.enter("dat"))
        throw Failure("the arguments in dat must be an object");
    Outcome outcome = Outcome::Done;
    try {
        outcome = command->second(request, message);
    } catch (...) {
        message.leave();
        throw;
    }
    message.leave();
    return outcome;
}

} // namespace tamobox

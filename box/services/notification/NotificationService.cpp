// SPDX-License-Identifier: Apache-2.0
#include "NotificationService.h"

#include "ChoiceSearch.h"
#include "NotifyRequest.h"

#include "common/Failure.h"
#include "common/Printable.h"
#include "services/RequestValues.h"

#include <limits>

namespace tamobox {

NotificationService::NotificationService(EventLoop& loop)
    : m_complaints(loop)
    , m_board(loop, [this](const Notification& notification) { expired(notification); })
    , m_mailbox(loop, "services/notification/control", m_complaints,
                {{"Notify", [this](const auto& client, auto& dat) { post(client, dat); }},
                 {"Cancel", [this](const auto& client, auto& dat) { cancel(client, dat); }}},
                [this](MailboxServer::Client client) {
                    m_board.markGone([client](const Notification& notification) {
                        return notification.client == client;
                    });
                })
    , m_control(loop, "box/notification", commands(), [](MailboxServer::Client) {})
{
    if (!m_board.restore())
        return;
    m_mailbox.catchUp();
    m_board.markGone([this](const Notification& notification) {
        return !m_mailbox.isThere(notification.client, notification.process);
    });
    const NotificationList& list = m_board.list();
    Complaints::write(
        "notifications that were kept: " + std::to_string(list.all().size()) +
        ", of them of applications that have gone: " + std::to_string(list.gone().size()) +
        "; what was posted or withdrawn meanwhile is lost");
    m_board.expireDue();
}

void NotificationService::post(const ApplicationClient& client, MessageReader& dat)
{
    Notification notification = readNotify(dat);
    notification.client = client.number;
    notification.process = client.process;
    notification.application = client.application;
    const Notification* const before = m_board.list().findOf(client.number, notification.id);
    notification.number = before == nullptr ? m_board.list().nextNumber() : before->number;
    m_board.put(notification);
}

void NotificationService::cancel(const ApplicationClient& client, MessageReader& dat)
{
    const Notification* const found = m_board.list().findOf(client.number, readNotificationId(dat));
    if (found != nullptr)
        m_board.remove(found->number);
}

void NotificationService::expired(const Notification& notification)
{
    if (notification.isGone)
        return;
    const std::string trouble = tell(notification, "Expire");
    if (!trouble.empty())
        m_complaints.add(trouble);
}

std::map<std::string, ControlMailbox::Command> NotificationService::commands()
{
    const auto answers = [this](Answer answer) {
        return [this, answer](const ControlRequest& request, MessageReader& arguments) {
            const std::string id = requiredText(arguments, "id");
            const std::optional<int> process =
                optionalInteger(arguments, "pid", 0, std::numeric_limits<int>::max());
            catchUp();
            const Notification notification = m_board.list().find(id, process);
            (this->*answer)(notification, arguments);
            m_control.report(request, [&](MessageWriter& members) {
                members.add("id", notification.id).add("pid", notification.process);
            });
            return Outcome::Done;
        };
    };
    const auto isUpToDate = [this](const ControlRequest&, MessageReader&) {
        catchUp();
        return Outcome::Done;
    };
    return {{"acknowledge", answers(&NotificationService::acknowledge)},
            {"choose", answers(&NotificationService::choose)},
            {"expire", answers(&NotificationService::expire)},
            {"list", isUpToDate},
            {"open", answers(&NotificationService::open)}};
}

// What was posted, withdrawn or has expired before a command counts.
void NotificationService::catchUp()
{
    m_mailbox.catchUp();
    m_board.expireDue();
}

void NotificationService::open(const Notification& notification, MessageReader&)
{
    if (notification.notifyOnInvoke)
        tellOrFail(notification, "Invoke");
    Notification opened = notification;
    opened.isOpened = true;
    m_board.put(opened);
}

void NotificationService::expire(const Notification& notification, MessageReader&)
{
    tellOrFail(notification, "Expire");
    m_board.remove(notification.number);
}

void NotificationService::acknowledge(const Notification& notification, MessageReader&)
{
    tellOrFail(notification, "Acknowledge");
    m_board.remove(notification.number);
}

void NotificationService::choose(const Notification& notification, MessageReader& arguments)
{
    const std::size_t index = findChoice(notification, optionalText(arguments, "label"),
                                         optionalText(arguments, "choice"));
    const NotificationChoice& choice = notification.choices[index];
    tellOrFail(notification, "Acknowledge", [&](MessageWriter& dat) {
        dat.add("promptResponse", static_cast<int>(index))
            .startObject("promptChoice")
            .add("id", choice.id)
            .add("label", choice.label)
            .add("context", choice.context.value_or(""))
            .endObject();
    });
    m_board.remove(notification.number);
}

// Empty where the message is in the application's queue, and else what is wrong.
std::string NotificationService::tell(const Notification& notification, const char* message,
                                      const Fill& fill)
{
    const std::string id = printable(notification.id);
    const std::string who =
        "its application, " + processText(notification.process, notification.application) + ',';
    if (notification.isGone)
        return id + " cannot be answered: " + who + " has gone";
    const auto delivery = m_mailbox.tell(notification.client, message, [&](MessageWriter& dat) {
        dat.add("id", notification.id);
        if (notification.context)
            dat.add("context", *notification.context);
        if (fill)
            fill(dat);
    });
    switch (delivery) {
    case MailboxServer::Delivery::Sent:
        break;
    case MailboxServer::Delivery::Gone:
        return id + " cannot be answered: " + who + " is just leaving";
    case MailboxServer::Delivery::Full:
        return id + " was not answered with " + message + ": " + who +
               " does not read what it is sent, and its queue is full";
    }
    return {};
}

void NotificationService::tellOrFail(const Notification& notification, const char* message,
                                     const Fill& fill)
{
    const std::string trouble = tell(notification, message, fill);
    if (!trouble.empty())
        throw Failure(trouble);
}

} // namespace tamobox

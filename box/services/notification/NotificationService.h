// SPDX-License-Identifier: Apache-2.0
#ifndef TAMOBOX_NOTIFICATIONSERVICE_H
#define TAMOBOX_NOTIFICATIONSERVICE_H

#include "NotificationBoard.h"

#include "services/ApplicationMailbox.h"
#include "services/ControlMailbox.h"

#include <map>

namespace tamobox {

/**
 * The phone's notifications: takes them from applications through the mailbox
 * `/pps/services/notification/control`, tells each application there what a person did with its
 * own, as `/pps/box/notification` says, and keeps them in `/pps/box/notifications`, so that the
 * service, started again, goes on with them.
 */
class NotificationService
{
public:
    explicit NotificationService(EventLoop& loop);

private:
    using Outcome = ControlMailbox::Outcome;
    using Answer = void (NotificationService::*)(const Notification&, MessageReader&);

    void post(const ApplicationClient& client, MessageReader& dat);
    void cancel(const ApplicationClient& client, MessageReader& dat);
    void expired(const Notification& notification);

    std::map<std::string, ControlMailbox::Command> commands();
    void catchUp();
    void open(const Notification& notification, MessageReader& arguments);
    void expire(const Notification& notification, MessageReader& arguments);
    void acknowledge(const Notification& notification, MessageReader& arguments);
    void choose(const Notification& notification, MessageReader& arguments);

    using Fill = std::function<void(MessageWriter&)>;
    std::string tell(const Notification& notification, const char* message, const Fill& fill = {});
    void tellOrFail(const Notification& notification, const char* message, const Fill& fill = {});

    Complaints m_complaints;
    NotificationBoard m_board;
    ApplicationMailbox m_mailbox;
    ControlMailbox m_control;
};

} // namespace tamobox

#endif

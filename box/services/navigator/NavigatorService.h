// SPDX-License-Identifier: Apache-2.0
#ifndef TAMOBOX_NAVIGATORSERVICE_H
#define TAMOBOX_NAVIGATORSERVICE_H

#include "ApplicationTable.h"
#include "BoxCommands.h"
#include "ControlRequests.h"
#include "Departures.h"
#include "EventPost.h"
#include "ProcessWatch.h"
#include "Turns.h"
#include "services/Complaints.h"
#include "services/PendingCommands.h"

#include "services/ControlMailbox.h"
#include "services/Publisher.h"

namespace tamobox {

/**
 * The phone's navigator: knows the applications, tells them their events through the mailbox
 * `/pps/services/navigator/events`, takes what they ask and answer through
 * `/pps/services/navigator/control`, publishes them in `/pps/services/navigator/applications`, and
 * does what it is told through `/pps/box/navigator`. Started again, it takes the applications that
 * are still there from what it had published.
 */
class NavigatorService
{
public:
    explicit NavigatorService(EventLoop& loop);

private:
    void restore();
    void clientCame(pid_t process);
    void clientsLeft(pid_t process);
    void processEnded(pid_t process);
    void publish();

    Complaints m_complaints;
    ApplicationTable m_applications;
    Publisher m_publisher;
    ProcessWatch m_processes;
    EventPost m_post;
    BoxCommands m_commands;
    ControlMailbox m_control;
    PendingCommands m_pending;
    Turns m_turns;
    Departures m_departures;
    ControlRequests m_requests;
};

} // namespace tamobox

#endif

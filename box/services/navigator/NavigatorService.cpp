// SPDX-License-Identifier: Apache-2.0
#include "NavigatorService.h"

#include "ApplicationsText.h"

#include "common/Failure.h"
#include "services/ProcessName.h"

#include <cerrno>

namespace tamobox {

NavigatorService::NavigatorService(EventLoop& loop)
    : m_complaints(loop)
    , m_publisher("services/navigator/applications")
    , m_processes(loop, [this](pid_t process) { processEnded(process); })
    , m_post(
          loop, m_complaints, [this](pid_t process) { clientCame(process); },
          [this](pid_t process) { clientsLeft(process); })
    , m_commands({m_applications, m_post, m_turns, m_departures, m_pending, m_complaints})
    , m_control(loop, "box/navigator", m_commands.table(),
                [this](MailboxServer::Client client) {
                    m_departures.clientLeft(client);
                    m_pending.clientLeft(client);
                })
    , m_pending(loop, m_control, [this] { publish(); })
    , m_turns(loop, {m_applications, m_post, m_pending, m_complaints, [this] { publish(); }})
    , m_departures(loop, m_processes, m_pending)
    , m_requests(loop, {m_applications, m_post, m_turns, m_departures, m_complaints,
                        [this] { publish(); }})
{
    restore();
    m_post.catchUp();
    publish();
}

void NavigatorService::restore()
{
    const std::optional<std::string> text = m_publisher.published();
    if (!text)
        return;
    ApplicationTable before = readApplications(*text);
    m_applications.locked = before.locked;
    for (const WindowGroup& application : before.all())
        if (m_processes.watch(application.process))
            m_applications.restore(application);
    m_applications.restoreForeground(before.foregroundGroup());
}

void NavigatorService::clientCame(pid_t process)
{
    // Another process may have come to the id of one whose end has not been noticed.
    if (m_processes.hasEnded(process))
        m_processes.end(process);
    WindowGroup* known = m_applications.find(process);
    if (known == nullptr) {
        if (!m_processes.watch(process))
            return;
        const int angle = DisplayClient::publishedRotation().value_or(0);
        m_commands.tellOthers(m_applications.arrive(process, processName(process), angle));
        known = m_applications.find(process);
    }
    known->listening = true;
    m_turns.endCutOffTurn(*known);
    m_requests.applicationCame(process);
    publish();
    m_pending.tryAgain();
}

void NavigatorService::clientsLeft(pid_t process)
{
    WindowGroup* const application = m_applications.find(process);
    if (application == nullptr)
        return;
    application->listening = false;
    // What it answered just before counts.
    m_requests.catchUp();
    m_turns.applicationGone(process);
    publish();
    m_pending.tryAgain();
}

void NavigatorService::processEnded(pid_t process)
{
    m_requests.catchUp();
    m_requests.processEnded(process);
    m_turns.applicationGone(process);
    m_applications.remove(process);
    publish();
    m_departures.processEnded(process);
    m_pending.tryAgain();
}

void NavigatorService::publish()
{
    try {
        m_publisher.publishChange(
            [&](MessageWriter& object) { writeApplications(object, m_applications); });
    } catch (const ObjectFailure& failure) {
        if (failure.error() != EFBIG)
            throw;
        m_complaints.add("what applications have set is too much to be published");
    }
}

} // namespace tamobox

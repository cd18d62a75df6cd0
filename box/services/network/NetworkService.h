// SPDX-License-Identifier: Apache-2.0
#ifndef TAMOBOX_NETWORKSERVICE_H
#define TAMOBOX_NETWORKSERVICE_H

#include "NetworkPost.h"
#include "NetworkState.h"

#include "common/Timer.h"
#include "pps/ObjectFile.h"
#include "services/Complaints.h"
#include "services/ControlMailbox.h"

#include <deque>
#include <functional>
#include <vector>

namespace tamobox {

/**
 * The phone's network: publishes its state in `/pps/services/network/status`, tells each change to
 * applications through the mailbox `/pps/services/network/events`, always after it was published,
 * and changes as it is told to through `/pps/box/network`. What somebody else publishes in the
 * object is told, too. At first there is no network. The state lies in `/pps` only, so that the
 * service, started again, goes on from there, and tells it again to all who listen.
 *
 * Commands are carried out one after the other, and answered when what they did is at every
 * application that reads.
 */
class NetworkService
{
public:
    explicit NetworkService(EventLoop& loop);
    ~NetworkService();
    NetworkService(const NetworkService&) = delete;
    NetworkService& operator=(const NetworkService&) = delete;

private:
    using Outcome = ControlMailbox::Outcome;

    struct Job
    {
        ControlRequest request;
        int remaining = 1; // how often it is still to be done
        std::function<void()> step;
    };

    Outcome setAvailable(const ControlRequest& request, bool isAvailable);
    Outcome flap(const ControlRequest& request, MessageReader& arguments);
    Outcome setProxies(const ControlRequest& request, MessageReader& arguments);
    Outcome tellEvent(const ControlRequest& request, MessageReader& arguments);
    Outcome queue(Job job);
    void work();
    void answer();
    void reassure();
    void clientLeft(MailboxServer::Client client);

    void change(const NetworkState& state);
    bool takeOver(const std::string& text);
    void readOthers();

    EventLoop& m_loop;
    Complaints m_complaints;
    ObjectFile m_status; // read and written by one descriptor, so that it is news of others only
    NetworkState m_state;
    std::deque<Job> m_jobs;
    std::vector<ControlRequest> m_done; // and not answered yet
    Timer m_workTimer;
    Timer m_signTimer;
    NetworkPost m_post;
    ControlMailbox m_control;
};

} // namespace tamobox

#endif

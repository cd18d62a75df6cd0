// SPDX-License-Identifier: Apache-2.0
#ifndef TAMO_TESTS_NAVIGATORSERVER_H
#define TAMO_TESTS_NAVIGATORSERVER_H

#include "PpsDescriptor.h"

#include <string>

namespace tamotest {

/** A navigator of the test's: it serves the two mailboxes, and does what it is told. */
class NavigatorServer
{
public:
    NavigatorServer();

    /** Waits for the next client of `events`, and returns its number; empty where none came. */
    std::string awaitClient();

    /** Waits for what is next in the mailbox `events`. */
    std::string nextOfEvents() const { return next(m_events); }

    /** Sends a message to a client of `events`: lines, each with its end. 0 or an `errno` value. */
    int send(const std::string& client, const std::string& lines) const;

    /** Waits for the next request, comings and goings left out: its lines, without the heading. */
    std::string nextRequest();

    /** The client that sent it. */
    const std::string& requester() const { return m_requester; }

private:
    static std::string next(const PpsDescriptor& mailbox);

    PpsDescriptor m_events;
    PpsDescriptor m_control;
    std::string m_requester;
};

} // namespace tamotest

#endif

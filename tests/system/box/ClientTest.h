// SPDX-License-Identifier: Apache-2.0
#ifndef BOXTEST_CLIENTTEST_H
#define BOXTEST_CLIENTTEST_H

#include "BoxTest.h"

#include <string>
#include <utility>
#include <vector>

namespace boxtest {

/** An application that asks a service: the helper program tamo-test-client. */
struct Client
{
    std::unique_ptr<Process> process; ///< that runs it: `exec`
    std::string pid;                  ///< its own, within the box

    /** Whether it has been sent a message that holds a text; waits for it. */
    bool heard(const std::string& text) { return process->printed(text); }
};

/** Tests of a service that applications ask through a mailbox. */
class ClientTest : public BoxTest
{
protected:
    /** @param mailbox its path below `/pps` */
    explicit ClientTest(std::string mailbox) : m_mailbox(std::move(mailbox)) {}

    /** Starts such an application in a box; the arguments are the helper program's. */
    Client startClient(const Box& box, std::vector<std::string> arguments = {}) const;

    /** Has an application send a request. */
    void have(const Box& box, const Client& client, const std::string& request) const;

    /** Kills an application, as no application ends by itself. */
    void killClient(const Box& box, Client& client) const;

    /** Runs a command until its output holds a text. */
    std::string outputWith(const Box& box, const std::vector<std::string>& command,
                           const std::string& text) const;

    /** Has a process in the box send so many requests like one, in which %d is a number from 1 on,
     * through one descriptor, and waits until all are taken. It goes on, having printed "sent". */
    std::unique_ptr<Process> sendMany(const Box& box, const std::string& request, int count) const;

    /** A request that has no effect, and how the complaint of it ends. */
    using Garbage = std::pair<std::string, std::string>;

    /** Has an application send each of them, and checks that the service complains of it, and that
     * nothing has changed: a command prints what it prints at first. */
    void checkGarbage(const std::string& service, const std::vector<Garbage>& rows,
                      const std::vector<std::string>& command) const;

    /** A request as a mailbox takes it. */
    static std::string request(const std::string& message, const std::string& dat);

private:
    std::string m_mailbox;
};

/** How often a text holds another. */
int occurrences(const std::string& text, const std::string& part);

} // namespace boxtest

#endif

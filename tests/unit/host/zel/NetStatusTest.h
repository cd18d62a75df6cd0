// SPDX-License-Identifier: Apache-2.0
#ifndef TAMO_TESTS_NETSTATUSTEST_H
#define TAMO_TESTS_NETSTATUSTEST_H

#include "PpsDescriptor.h"
#include "ServiceDomainTest.h"

#include <zel/netstatus.h>

#include <optional>
#include <string>
#include <vector>

namespace tamotest {

/** A network service of the test's: it serves the mailbox of events, and does what it is told. */
class NetworkServer
{
public:
    NetworkServer();

    /** Waits for the next client, and returns its number; empty where none came. */
    std::string awaitClient();

    /** Sends a message to a client: lines, each with its end. 0 or an `errno` value. */
    int send(const std::string& client, const std::string& lines) const;

private:
    PpsDescriptor m_events;
};

/** A ServiceDomainTest with a network service. */
class NetStatusTest : public ServiceDomainTest
{
protected:
    static constexpr char Status[] = "services/network/status";

    std::optional<NetworkServer> network{std::in_place};
};

/** Lines that are malformed as a state, each in another way. */
extern const std::vector<std::string> MalformedStates;

} // namespace tamotest

#endif

// SPDX-License-Identifier: Apache-2.0
#ifndef TAMO_TESTS_NETSTATUSTEST_H
#define TAMO_TESTS_NETSTATUSTEST_H

#include "PpsDescriptor.h"
#include "PrivatePps.h"
#include "ZelTest.h"

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

/** A thread that is initialised, a `/pps`, and a network service. */
class NetStatusTest : public ::testing::Test
{
protected:
    static constexpr char Status[] = "services/network/status";

    void SetUp() override { ASSERT_EQ(zel_initialize(), 0); }
    void TearDown() override { EXPECT_EQ(zel_shutdown(), 0); }

    /** Takes the next event; NULL where none comes in time. */
    static zel_event_t* take(int timeoutMs = TimeoutMs)
    {
        zel_event_t* event = nullptr;
        EXPECT_EQ(zel_get_event(&event, timeoutMs), 0);
        return event;
    }

    std::optional<PpsFilesystem> filesystem{std::in_place};
    std::optional<NetworkServer> network{std::in_place};
};

/** Lines that are malformed as a state, each in another way. */
extern const std::vector<std::string> MalformedStates;

} // namespace tamotest

#endif

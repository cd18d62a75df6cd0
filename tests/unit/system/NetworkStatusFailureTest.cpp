// SPDX-License-Identifier: Apache-2.0
// Every call of the seam fails in turn.
#include "NetworkTest.h"

#include "system/NetworkStatusManagerImpl.h"

#include <tamo/Exception.h>
#include <tamo/system/NetworkStatus.h>

#include <QCoreApplication>
#include <QTest>

#include <gmock/gmock.h>

using namespace tamotest;
using namespace testing;
using tamo::system::NetworkStatus;
using tamo::system::NetworkStatusManager;
using tamo::system::NetworkStatusManagerImpl;

namespace {

class NetworkStatusFailureTest : public NetworkTest
{
protected:
    bool isWatched(NetworkStatusManagerImpl& manager)
    {
        Notes notes;
        QObject receiver;
        QObject::connect(&manager, &NetworkStatusManager::externalNetworkConnected, &receiver,
                         [&] { notes.add("connected"); });
        EventContent content;
        content.isAvailable = true;
        return eventually([&] { return netStatus.deliver(NETSTATUS_INFO, content); }) &&
               QTest::qWaitFor([&] { return notes.count("connected") == 1; }, 20'000);
    }
};

class StartFailureTest : public NetworkStatusFailureTest,
                         public WithParamInterface<std::pair<const char*, int>>
{
};

TEST_P(StartFailureTest, IsThrownOnceAndTheNextUseTriesAgain)
{
    NetworkStatusManagerImpl manager;
    journal.fail(GetParam().first, GetParam().second);
    EXPECT_THROW(manager.watchNetworks(), tamo::Exception);
    EXPECT_THAT(platform.leftovers(), IsEmpty());
    EXPECT_FALSE(manager.isExternalNetworkConnected());
    manager.watchNetworks();
    EXPECT_TRUE(isWatched(manager));
}

// The second initialisation is the dispatch thread's.
INSTANTIATE_TEST_SUITE_P(
    Each, StartFailureTest,
    Values(std::make_pair("core.initialize", 2), std::make_pair("core.registerDomain", 1),
           std::make_pair("core.registerDomain", 2), std::make_pair("core.registerDomain", 3),
           std::make_pair("core.channelGetActive", 1), std::make_pair("core.eventCreate", 1),
           std::make_pair("core.channelPushEvent", 1)));

TEST_F(NetworkStatusFailureTest, InitializationThatFailsInTheCallersThreadIsNotLookedAt)
{
    NetworkStatusManagerImpl manager;
    journal.fail("core.initialize", 1);
    manager.watchNetworks();
    EXPECT_TRUE(isWatched(manager));
    // The subscription's own has never been, and its end is surplus.
}

TEST_F(NetworkStatusFailureTest, RequestThatFailsLeavesTheManagerWithoutEvents)
{
    NetworkStatusManagerImpl manager;
    journal.fail("netStatus.requestEvents", 1, ENOENT);
    manager.watchNetworks();
    ASSERT_TRUE(journal.waitForCount("core.getEvent", 2));
    EXPECT_FALSE(netStatus.deliver(NETSTATUS_INFO));
    netStatus.isAvailable = true;
    EXPECT_TRUE(manager.isExternalNetworkConnected());
}

TEST_F(NetworkStatusFailureTest, ReportThatCannotBeReadIsOneOfNoNetwork)
{
    NetworkStatusManagerImpl manager;
    manager.watchNetworks();
    awaitEvents();
    Notes notes;
    QObject receiver;
    QObject::connect(
        manager.networkStatus(1), &NetworkStatus::networkDisconnected, &receiver,
        [&] { notes.add("disconnected"); }, Qt::DirectConnection);
    journal.fail("netStatus.eventGetAvailability");
    report(true);
    EXPECT_THAT(notes.all(), ElementsAre("disconnected"));
    EXPECT_TRUE(isWatched(manager));
}

} // namespace

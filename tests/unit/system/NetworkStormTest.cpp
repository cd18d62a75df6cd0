// SPDX-License-Identifier: Apache-2.0
// Ten thousand reports while several threads connect, disconnect and ask.
#include "NetworkTest.h"
#include "Storm.h"

#include "system/NetworkStatusManagerImpl.h"

#include <tamo/system/NetworkStatus.h>

#include <QTest>

#include <gmock/gmock.h>

#include <atomic>

using namespace tamotest;
using tamo::system::NetworkStatus;
using tamo::system::NetworkStatusManager;
using tamo::system::NetworkStatusManagerImpl;

namespace {

constexpr int flaps = 10'000;
constexpr int flapsAtATime = 500;

class NetworkStormTest : public NetworkTest
{
protected:
    NetworkStormTest() { journal.setKeeping(false); }
};

TEST_F(NetworkStormTest, ReportsAreHeardInOrderWhileOthersComeAndGo)
{
    NetworkStatusManagerImpl manager;
    NetworkStatus* const status = manager.networkStatus(1);
    std::atomic<int> heard{0};
    bool isConnected = false;
    bool isInOrder = true;
    int folded = 0;
    const auto fold = [&](bool isConnectedNow) {
        isInOrder = isInOrder && isConnected != isConnectedNow;
        isConnected = isConnectedNow;
        ++folded;
    };
    QObject::connect(&manager, &NetworkStatusManager::externalNetworkConnected, &manager,
                     [&] { fold(true); });
    QObject::connect(&manager, &NetworkStatusManager::externalNetworkDisconnected, &manager,
                     [&] { fold(false); });
    QObject::connect(
        status, &NetworkStatus::networkConnected, status, [&] { ++heard; }, Qt::DirectConnection);
    QObject::connect(
        status, &NetworkStatus::networkDisconnected, status, [&] { ++heard; },
        Qt::DirectConnection);
    manager.watchNetworks();
    ASSERT_TRUE(journal.waitForCount("netStatus.requestEvents", 1));

    const auto comeAndGo = [&] {
        QObject receiver;
        QObject::connect(status, &NetworkStatus::networkConnected, &receiver, [] {});
        QObject::connect(&manager, &NetworkStatusManager::externalNetworkConnected, &receiver,
                         [] {});
    };
    const auto ask = [&] {
        manager.isExternalNetworkConnected();
        manager.networkStatus(1)->isConnected();
    };
    {
        const Storm first(comeAndGo);
        const Storm second(comeAndGo);
        const Storm third(ask);
        for (int sent = 0; sent < flaps; sent += flapsAtATime) {
            for (int i = 0; i < flapsAtATime; ++i) {
                EventContent content;
                content.isAvailable = i % 2 == 0;
                netStatus.isAvailable = content.isAvailable;
                ASSERT_TRUE(eventually([&] { return netStatus.deliver(NETSTATUS_INFO, content); }));
            }
            ASSERT_TRUE(QTest::qWaitFor([&] { return folded == sent + flapsAtATime; }, 60'000));
        }
    }
    EXPECT_EQ(heard, flaps);
    EXPECT_TRUE(isInOrder);
    EXPECT_FALSE(isConnected);
}

} // namespace

// SPDX-License-Identifier: Apache-2.0
// Where an application's binary finds the operations: by their place in the table of virtual
// functions, which is part of the interface.
#include "VirtualSlots.h"

#include <tamo/system/NetworkStatus.h>
#include <tamo/system/NetworkStatusManager.h>

#include <gmock/gmock.h>

using tamo::system::NetworkStatus;
using tamo::system::NetworkStatusManager;
using tamotest::Longer;
using tamotest::slot;

namespace {

TEST(NetworkVirtualSlotTest, NetworkStatusAddsThreeOperationsToThoseOfQObject)
{
    const std::ptrdiff_t first = slot(&Longer<QObject>::next);
    EXPECT_EQ(slot(&NetworkStatus::isConnected), first);
    EXPECT_EQ(slot(&NetworkStatus::isExternal), first + 1);
    EXPECT_EQ(slot(&NetworkStatus::networkType), first + 2);
    EXPECT_EQ(slot(&Longer<NetworkStatus>::next), first + 3);
}

TEST(NetworkVirtualSlotTest, NetworkStatusManagerAddsTwo)
{
    const std::ptrdiff_t first = slot(&Longer<QObject>::next);
    EXPECT_EQ(slot(&NetworkStatusManager::isExternalNetworkConnected), first);
    EXPECT_EQ(slot(&NetworkStatusManager::networkStatus), first + 1);
    EXPECT_EQ(slot(&Longer<NetworkStatusManager>::next), first + 2);
}

} // namespace

// SPDX-License-Identifier: Apache-2.0
// Where an application's binary finds the operations: by their place in the table of virtual
// functions, which is part of the interface.
#include <tamo/system/NetworkStatus.h>
#include <tamo/system/NetworkStatusManager.h>

#include <gmock/gmock.h>

#include <array>
#include <cstring>

using tamo::system::NetworkStatus;
using tamo::system::NetworkStatusManager;

namespace {

// As the C++ ABI of Linux has it: a pointer to a virtual member function is its place in bytes,
// plus one.
template<typename Function>
std::ptrdiff_t slot(Function function)
{
    std::array<std::ptrdiff_t, 2> parts = {};
    static_assert(sizeof parts == sizeof function);
    std::memcpy(parts.data(), &function, sizeof parts);
    return (parts[0] - 1) / static_cast<std::ptrdiff_t>(sizeof(void*));
}

// The first operation that a derived class adds comes behind all that there are.
template<typename Base>
class Longer : public Base
{
public:
    virtual void next() = 0;
};

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

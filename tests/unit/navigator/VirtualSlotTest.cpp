// SPDX-License-Identifier: Apache-2.0
// Where an application's binary finds the operations: by their place in the table of virtual
// functions, which is part of the interface.
#include "navigator/NavigatorImpl.h"

#include <tamo/OrientationHandler.h>

#include <gmock/gmock.h>

#include <array>
#include <cstring>

using tamo::Navigator;
using tamo::OrientationHandler;

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

TEST(VirtualSlotTest, NavigatorAddsFourOperationsToThoseOfQObject)
{
    const std::ptrdiff_t first = slot(&Longer<QObject>::next);
    EXPECT_EQ(first, 12);
    EXPECT_EQ(slot(&Navigator::allowedOrientation), first);
    EXPECT_EQ(slot(&Navigator::setAllowedOrientation), first + 1);
    EXPECT_EQ(slot(&Navigator::setOrientationHandler), first + 2);
    EXPECT_EQ(slot(&Navigator::windowGroupId), first + 3);
    EXPECT_EQ(slot(&Longer<Navigator>::next), first + 4);
}

TEST(VirtualSlotTest, NavigatorImplAddsNone)
{
    EXPECT_EQ(slot(&Longer<tamo::NavigatorImpl>::next), slot(&Longer<Navigator>::next) + 1);
}

TEST(VirtualSlotTest, OrientationHandlerBeginsWithItsRequest)
{
    EXPECT_EQ(slot(&OrientationHandler::handleOrientationRequest), 0);
}

TEST(VirtualSlotTest, OrientationRequestHasOneOperation)
{
    EXPECT_EQ(slot(&OrientationHandler::OrientationRequest::done), 0);
    EXPECT_EQ(slot(&Longer<OrientationHandler::OrientationRequest>::next), 1);
}

} // namespace

// SPDX-License-Identifier: Apache-2.0
#ifndef TAMO_TESTS_NAVIGATORTEST_H
#define TAMO_TESTS_NAVIGATORTEST_H

#include "NavigatorServer.h"
#include "PrivatePps.h"
#include "ZelTest.h"

#include <zel/navigator.h>

#include <optional>

namespace tamotest {

/** A thread that is initialised, a `/pps`, and a navigator that serves it. */
class NavigatorTest : public ::testing::Test
{
protected:
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
    std::optional<NavigatorServer> navigator{std::in_place};
};

} // namespace tamotest

#endif

// SPDX-License-Identifier: Apache-2.0
#ifndef TAMO_TESTS_SERVICEDOMAINTEST_H
#define TAMO_TESTS_SERVICEDOMAINTEST_H

#include "PrivatePps.h"
#include "ZelTest.h"

#include <optional>
#include <string>

namespace tamotest {

/** A text of an event's, which may be none. */
inline std::string textOf(const char* value)
{
    return value ? value : "(none)";
}

/** A thread that is initialised, and a `/pps`, in which a test has its service. */
class ServiceDomainTest : public ::testing::Test
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
};

} // namespace tamotest

#endif

// SPDX-License-Identifier: Apache-2.0
// However an application comes to the manager first, and however it ends with it.
#include "ProgramRuns.h"

namespace {

class NetworkStatusManagerUse : public testing::TestWithParam<const char*>
{
};

TEST_P(NetworkStatusManagerUse, IsAsItShouldBeEveryTime)
{
    constexpr int runs = 10;
    tamotest::runAgainAndAgain(TAMO_TEST_NETWORK_USES, GetParam(), runs);
}

INSTANTIATE_TEST_SUITE_P(Ways, NetworkStatusManagerUse,
                         testing::Values("in-a-thread-that-ends", "in-a-qthread-that-ends",
                                         "in-a-slot-on-the-dispatch-thread",
                                         "in-two-threads-one-of-which-dispatches",
                                         "in-many-threads", "where-the-platform-fails-at-first",
                                         "quit", "exit", "exit-on-the-dispatch-thread"),
                         tamotest::wayName);

} // namespace

// SPDX-License-Identifier: Apache-2.0
// However an application ends in the middle of a storm of events, its status is its own.
#include "ProgramRuns.h"

namespace {

class ApplicationEnd : public testing::TestWithParam<const char*>
{
};

TEST_P(ApplicationEnd, GivesItsOwnStatusEveryTime)
{
    tamotest::runAgainAndAgain(TAMO_TEST_APPLICATION_ENDINGS, GetParam(), TAMO_TEST_RUNS);
}

INSTANTIATE_TEST_SUITE_P(Ways, ApplicationEnd,
                         testing::Values("return", "quit", "exit", "exit-on-the-dispatch-thread",
                                         "_exit", "_exit-on-the-dispatch-thread", "quick_exit"),
                         tamotest::wayName);

} // namespace

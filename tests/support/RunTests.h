// SPDX-License-Identifier: Apache-2.0
#ifndef TAMO_TESTS_RUNTESTS_H
#define TAMO_TESTS_RUNTESTS_H

#include <gtest/gtest.h>

namespace tamotest {

/**
 * Runs all tests; what main() returns. Where all passed but some were skipped, that is 77, so that
 * CTest reports the program as skipped. What a machine may not allow therefore has a program of its
 * own.
 */
inline int runTests()
{
    const int status = RUN_ALL_TESTS();
    const bool skipped = testing::UnitTest::GetInstance()->skipped_test_count() > 0;
    return status == 0 && skipped ? 77 : status;
}

} // namespace tamotest

#endif

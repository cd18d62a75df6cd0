// SPDX-License-Identifier: Apache-2.0
#include "services/payment/RequestNumbers.h"

#include <gtest/gtest.h>

using namespace tamobox;

namespace {

TEST(RequestNumbersTest, TheyGoOnAfterTheHighestThatWasThere)
{
    RequestNumbers numbers;
    EXPECT_EQ(numbers.next(), 1);
    numbers.startAfter(7);
    numbers.startAfter(3);
    EXPECT_EQ(numbers.next(), 8);
}

TEST(RequestNumbersTest, TheyEndAndDoNotWrap)
{
    RequestNumbers numbers;
    numbers.startAfter(Purchase::highestNumber - 1);
    EXPECT_EQ(numbers.next(), Purchase::highestNumber);
    EXPECT_EQ(numbers.next(), RequestNumbers::none);
    EXPECT_EQ(numbers.next(), RequestNumbers::none);
}

} // namespace

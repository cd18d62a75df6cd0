// SPDX-License-Identifier: Apache-2.0
// Without an application object: the tests make their own.
#include <gmock/gmock.h>

int main(int argc, char** argv)
{
    testing::InitGoogleMock(&argc, argv);
    return RUN_ALL_TESTS();
}

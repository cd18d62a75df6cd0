// SPDX-License-Identifier: Apache-2.0
#include "PrivatePps.h"

#include <gtest/gtest.h>

int main(int argc, char** argv)
{
    tamotest::enterPrivateNamespace(argc, argv);
    ::testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}

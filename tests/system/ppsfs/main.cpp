// SPDX-License-Identifier: Apache-2.0
#include "PrivatePps.h"
#include "RunTests.h"

#include <gtest/gtest.h>

int main(int argc, char** argv)
{
    tamotest::enterPrivateNamespace(argc, argv);
    ::testing::InitGoogleTest(&argc, argv);
    return tamotest::runTests();
}

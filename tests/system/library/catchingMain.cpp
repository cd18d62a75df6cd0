// SPDX-License-Identifier: Apache-2.0
#include "CatchingApplication.h"
#include "PrivatePps.h"

#include <gmock/gmock.h>

int main(int argc, char** argv)
{
    tamotest::enterPrivateNamespace(argc, argv);
    tamotest::CatchingApplication app(argc, argv);
    testing::InitGoogleMock(&argc, argv);
    return RUN_ALL_TESTS();
}

// SPDX-License-Identifier: Apache-2.0
#include "PrivatePps.h"

#include <QCoreApplication>

#include <gmock/gmock.h>

int main(int argc, char** argv)
{
    tamotest::enterPrivateNamespace(argc, argv);
    QCoreApplication app(argc, argv);
    testing::InitGoogleMock(&argc, argv);
    return RUN_ALL_TESTS();
}

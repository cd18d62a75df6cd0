// SPDX-License-Identifier: Apache-2.0
#ifndef TAMO_TESTS_NAVIGATORTEST_H
#define TAMO_TESTS_NAVIGATORTEST_H

#include "NavigatorServer.h"
#include "ServiceDomainTest.h"

#include <zel/navigator.h>

#include <optional>

namespace tamotest {

/** A ServiceDomainTest with a navigator that serves it. */
class NavigatorTest : public ServiceDomainTest
{
protected:
    std::optional<NavigatorServer> navigator{std::in_place};
};

} // namespace tamotest

#endif

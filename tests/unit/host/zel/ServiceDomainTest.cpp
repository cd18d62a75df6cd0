// SPDX-License-Identifier: Apache-2.0
// What it takes to ask for the events of a service's domain.
#include "ServiceDomainTest.h"

#include <zel/navigator.h>
#include <zel/netstatus.h>

#include <cerrno>
#include <ostream>

namespace tamotest {
namespace {

struct Domain
{
    const char* name;
    int (*requestEvents)(int flags);
};

std::ostream& operator<<(std::ostream& out, const Domain& domain)
{
    return out << domain.name;
}

class DomainRequestTest : public ServiceDomainTest, public ::testing::WithParamInterface<Domain>
{
};

TEST_P(DomainRequestTest, NeedsAnInitializedThreadAndNoFlags)
{
    EXPECT_THAT(GetParam().requestEvents(1), FailsWith(EINVAL));
    inThread([] { EXPECT_THAT(GetParam().requestEvents(0), FailsWith(EPERM)); });
}

TEST_P(DomainRequestTest, FailsWhereThereIsNoService)
{
    EXPECT_THAT(GetParam().requestEvents(0), FailsWith(ENOENT));
    filesystem.reset(); // no /pps at all
    EXPECT_THAT(GetParam().requestEvents(0), FailsWith(ENOENT));
    EXPECT_EQ(take(0), nullptr);
}

INSTANTIATE_TEST_SUITE_P(, DomainRequestTest,
                         ::testing::Values(Domain{"navigator", navigator_request_events},
                                           Domain{"netstatus", netstatus_request_events}),
                         ::testing::PrintToStringParamName());

} // namespace
} // namespace tamotest

// SPDX-License-Identifier: Apache-2.0
#include "BoxTest.h"

#include <signal.h>
#include <sys/syscall.h>

#include <fstream>

using namespace boxtest;
using namespace testing;

namespace {

class DeviceTest : public BoxTest
{
};

TEST_P(DeviceTest, IsPublishedBeforeTheApplication)
{
    const Box box =
        start({"sh", "-c", "cat /pps/services/deviceinfo/*; exec " + helper("tamo-test-idle")});
    EXPECT_THAT(box.launcher->output(),
                AllOf(HasSubstr("@data\nOsVersion::1.0.0.0\n"), HasSubstr("\nDeviceName::"),
                      HasSubstr("\nModelName::"), HasSubstr("\nModelNumber::"),
                      HasSubstr("@identity\nSerialNumber::"), HasSubstr("\nHardwareId::")));
    EXPECT_THAT(in(box, {"status"}).output, HasSubstr("device       version 1.0.0.0\n"));
    EXPECT_THAT(in(box, {"status", "--json"}).output,
                HasSubstr("\"device\":{\"osVersion\":\"1.0.0.0\"}"));
}

TEST_P(DeviceTest, ServiceThatDiedKeepsWhatIsPublished)
{
    const Box box = startIdle();
    EXPECT_THAT(in(box, {"pps", "set", "services/deviceinfo/data", "OsVersion::2.3.4.5"}),
                succeeds());
    box.signal("device-service", SIGKILL);
    ASSERT_TRUE(box.launcher->complained("device-service ended by signal 9; started again\n"));
    // It has published what it would when it sleeps in its event loop.
    EXPECT_TRUE(waitUntil([&] {
        std::ifstream call("/proc/" + std::to_string(box.find("device-service")) + "/syscall");
        long number = -1;
        return call >> number && (number == SYS_poll || number == SYS_ppoll ||
                                  number == SYS_epoll_wait || number == SYS_epoll_pwait);
    }));
    EXPECT_THAT(in(box, {"status"}).output, HasSubstr("device       version 2.3.4.5\n"));
}

BOX_TEST_USERS(DeviceTest);

} // namespace

// SPDX-License-Identifier: Apache-2.0
#include "ZelTest.h"

#include <sys/resource.h>

#include <cerrno>

namespace tamotest {
namespace {

class DescriptorLimitTest : public ZelTest
{
};

TEST_F(DescriptorLimitTest, AWatchFailsWhereNoDescriptorsAreLeft)
{
    rlimit before{};
    getrlimit(RLIMIT_NOFILE, &before);
    const rlimit none{3, before.rlim_max};
    setrlimit(RLIMIT_NOFILE, &none);
    const int result = zel_add_fd(
        0, ZEL_IO_INPUT, [](int, int, void*) { return 0; }, nullptr);
    const int error = errno;
    setrlimit(RLIMIT_NOFILE, &before);
    EXPECT_EQ(result, -1);
    EXPECT_EQ(error, EMFILE);
    push(channel(), 1);
    EXPECT_EQ(take(), 1) << "the channel works without";
}

} // namespace
} // namespace tamotest

// SPDX-License-Identifier: Apache-2.0
#include "PpsTest.h"

#include <sys/stat.h>
#include <unistd.h>

#include <string>

namespace tamotest {
namespace {

/** Modes as the creator sees them; whether strangers heed them is StrangersTest.cpp's. */
class NamesN4 : public PpsTest
{
protected:
    static struct stat statusOf(const std::string& name)
    {
        struct stat status
        {
        };
        EXPECT_EQ(stat(("/pps/" + name).c_str(), &status), 0) << name;
        return status;
    }
};

TEST_F(NamesN4, ObjectsBelongToTheirCreator)
{
    const mode_t before = umask(027);
    const PpsDescriptor object("o", O_RDWR | O_CREAT, 0666);
    ASSERT_EQ(mkdir("/pps/d", 0777), 0);
    umask(before);
    EXPECT_EQ(statusOf("o").st_mode, S_IFREG | 0640U);
    EXPECT_EQ(statusOf("o").st_uid, geteuid());
    EXPECT_EQ(statusOf("o").st_gid, getegid());
    EXPECT_EQ(statusOf("o?wait").st_mode, S_IFREG | 0640U);
    EXPECT_EQ(statusOf("d").st_mode, S_IFDIR | 0750U);
    EXPECT_EQ(statusOf("").st_mode, S_IFDIR | 0755U);
    EXPECT_EQ(statusOf("").st_uid, geteuid());
}

TEST_F(NamesN4, ModesAreChangedInEveryView)
{
    publish("o", "a:n:1\n");
    ASSERT_EQ(chmod("/pps/o?wait", 0600), 0);
    EXPECT_EQ(statusOf("o").st_mode, S_IFREG | 0600U);
    EXPECT_EQ(statusOf("o?changes").st_mode, S_IFREG | 0600U);
    const PpsDescriptor object("o");
    ASSERT_EQ(fchmod(object.get(), 0444), 0);
    EXPECT_EQ(statusOf("o").st_mode, S_IFREG | 0444U);
    const timespec times[2] = {{1000, 1}, {2000, 2}};
    EXPECT_EQ(futimens(object.get(), times), 0);
    EXPECT_EQ(statusOf("o").st_mtim.tv_sec, 2000);
    EXPECT_EQ(statusOf("o").st_mtim.tv_nsec, 2);
}

} // namespace
} // namespace tamotest

// SPDX-License-Identifier: Apache-2.0
#include "PpsTest.h"

#include <grp.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <string>

namespace tamotest {
namespace {

constexpr uid_t Stranger = 4242;

/** Modes as the creator sees them; whether strangers heed them takes several users, and so root. */
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

    /** Runs something as another user, without any privilege. */
    static int asStranger(const std::function<int()>& work)
    {
        return inChild([&work] {
            const bool dropped =
                setgroups(0, nullptr) == 0 && setgid(Stranger) == 0 && setuid(Stranger) == 0;
            return dropped ? work() : 255;
        });
    }

    static bool canBeAnother() { return geteuid() == 0; }
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

TEST_F(NamesN4, OwnersMayNotGiveObjectsAway)
{
    if (!canBeAnother())
        GTEST_SKIP() << "takes root, to be several users";
    publish("o", "a:n:1\n");
    ASSERT_EQ(chown("/pps/o", Stranger, Stranger), 0);
    EXPECT_EQ(asStranger([] { return chown("/pps/o", 1, 1) == 0 ? 0 : errno; }), EPERM);
}

TEST_F(NamesN4, StrangersAreHeldToTheMode)
{
    if (!canBeAnother())
        GTEST_SKIP() << "takes root, to be several users";
    publish("private", "a:n:1\n");
    publish("public", "a:n:1\n");
    ASSERT_EQ(chmod("/pps/private", 0600), 0);
    ASSERT_EQ(chmod("/pps/public", 0644), 0);
    ASSERT_EQ(mkdir("/pps/closed", 0700), 0);
    publish("closed/o", "a:n:1\n");
    ASSERT_EQ(mkdir("/pps/drop", 0755), 0);
    ASSERT_EQ(chmod("/pps/drop", 01777), 0);
    publish("drop/mine", "a:n:1\n");

    const auto openAs = [](const char* name, int flags) {
        return asStranger([=] { return PpsDescriptor(name, flags).error(); });
    };
    EXPECT_EQ(openAs("private", O_RDONLY), EACCES);
    EXPECT_EQ(openAs("private?wait", O_RDONLY), EACCES);
    EXPECT_EQ(openAs("private?serve", O_RDWR), EACCES);
    EXPECT_EQ(openAs("public", O_RDONLY), 0);
    EXPECT_EQ(openAs("public", O_WRONLY), EACCES);
    EXPECT_EQ(openAs("public", O_RDONLY | O_TRUNC), EACCES);
    EXPECT_EQ(openAs("closed/o", O_RDONLY), EACCES);
    EXPECT_EQ(openAs("new", O_RDWR | O_CREAT), EACCES);
    EXPECT_EQ(openAs("drop/theirs", O_RDWR | O_CREAT), 0);
    EXPECT_EQ(statusOf("drop/theirs").st_uid, Stranger);
    EXPECT_EQ(asStranger([] { return unlink("/pps/public") == 0 ? 0 : errno; }), EACCES);
    EXPECT_EQ(asStranger([] { return unlink("/pps/drop/mine") == 0 ? 0 : errno; }), EPERM);
    EXPECT_EQ(asStranger([] { return chmod("/pps/public", 0666) == 0 ? 0 : errno; }), EPERM);
    EXPECT_EQ(asStranger([] { return mkdir("/pps/a", 0777) == 0 ? 0 : errno; }), EACCES);
    ASSERT_EQ(chown("/pps/private", Stranger, Stranger), 0);
    EXPECT_EQ(openAs("private", O_RDWR), 0);
}

TEST_F(NamesN4, ClientsAreTellable)
{
    if (!canBeAnother())
        GTEST_SKIP() << "takes root, to be several users";
    const PpsDescriptor server("box?serve");
    ASSERT_EQ(chmod("/pps/box", 0666), 0);
    EXPECT_EQ(asStranger([] { return PpsDescriptor("box", O_WRONLY).write("a:n:1\n"); }), 0);
    EXPECT_THAT(server.read(), ::testing::HasSubstr("\nuid:n:4242\ngid:n:4242\n"));
}

} // namespace
} // namespace tamotest

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

/** Several users, and so root's alone. */
class NamesN4 : public PpsTest
{
protected:
    void SetUp() override
    {
        if (geteuid() != 0)
            GTEST_SKIP() << "takes root, to be several users";
    }

    static uid_t ownerOf(const std::string& name)
    {
        struct stat status
        {
        };
        EXPECT_EQ(stat(("/pps/" + name).c_str(), &status), 0) << name;
        return status.st_uid;
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
};

TEST_F(NamesN4, OwnersMayNotGiveObjectsAway)
{
    publish("o", "a:n:1\n");
    ASSERT_EQ(chown("/pps/o", Stranger, Stranger), 0);
    EXPECT_EQ(asStranger([] { return chown("/pps/o", 1, 1) == 0 ? 0 : errno; }), EPERM);
}

TEST_F(NamesN4, StrangersAreHeldToTheMode)
{
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
    EXPECT_EQ(ownerOf("drop/theirs"), Stranger);
    EXPECT_EQ(asStranger([] { return unlink("/pps/public") == 0 ? 0 : errno; }), EACCES);
    EXPECT_EQ(asStranger([] { return unlink("/pps/drop/mine") == 0 ? 0 : errno; }), EPERM);
    EXPECT_EQ(asStranger([] { return chmod("/pps/public", 0666) == 0 ? 0 : errno; }), EPERM);
    EXPECT_EQ(asStranger([] { return mkdir("/pps/a", 0777) == 0 ? 0 : errno; }), EACCES);
    ASSERT_EQ(chown("/pps/private", Stranger, Stranger), 0);
    EXPECT_EQ(openAs("private", O_RDWR), 0);
}

TEST_F(NamesN4, ClientsAreTellable)
{
    const PpsDescriptor server("box?serve");
    ASSERT_EQ(chmod("/pps/box", 0666), 0);
    EXPECT_EQ(asStranger([] { return PpsDescriptor("box", O_WRONLY).write("a:n:1\n"); }), 0);
    EXPECT_THAT(server.read(), ::testing::HasSubstr("\nuid:n:4242\ngid:n:4242\n"));
}

} // namespace
} // namespace tamotest

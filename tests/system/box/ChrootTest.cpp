// SPDX-License-Identifier: Apache-2.0
#include "BoxTest.h"

#include <sched.h>
#include <stdlib.h>
#include <sys/mount.h>
#include <unistd.h>

#include <cstdio>
#include <fstream>

using namespace boxtest;
using namespace testing;

namespace {

/**
 * A root directory that is the machine's own, but for one file, and that a process enters. Root's
 * alone: the kernel makes no user namespace, and so no box of an ordinary user, within a chroot.
 */
class ChrootTest : public BoxTest
{
protected:
    void SetUp() override
    {
        if (geteuid() != 0)
            GTEST_SKIP() << "takes root, to start a box within a chroot";
        char directory[] = "/tmp/tamo-test-XXXXXX";
        ASSERT_NE(mkdtemp(directory), nullptr);
        m_directory = directory;
        BoxTest::SetUp();
    }

    void TearDown() override
    {
        if (m_directory.empty())
            return;
        BoxTest::TearDown();
        EXPECT_EQ(rmdir(m_directory.c_str()), 0);
    }

    /** Makes the tree, in a namespace of mounts that ends with the calling process, and enters it.
     */
    void enterTree() const
    {
        const std::string mnt = m_directory + "/mnt";
        const bool entered =
            unshare(CLONE_NEWNS) == 0 &&
            mount(nullptr, "/", nullptr, MS_REC | MS_PRIVATE, nullptr) == 0 &&
            mount("/", m_directory.c_str(), nullptr, MS_BIND | MS_REC, nullptr) == 0 &&
            mount("tmpfs", mnt.c_str(), "tmpfs", 0, nullptr) == 0 &&
            std::ofstream(mnt + "/only-here") && chroot(m_directory.c_str()) == 0 &&
            chdir("/") == 0;
        if (!entered)
            std::perror("cannot enter the tree");
    }

    Box startWithinTree() const
    {
        return start({helper("tamo-test-idle")}, "started", [this] { enterTree(); });
    }

private:
    std::string m_directory;
};

TEST_P(ChrootTest, CommandsEnterTheBoxAtItsOwnRoot)
{
    const Box box = startWithinTree();
    EXPECT_EQ(in(box, {"exec", "--", "ls", "/mnt"}).output, "only-here\n");
}

TEST_P(ChrootTest, CommandsReachThePhone)
{
    const Box box = startWithinTree();
    EXPECT_THAT(in(box, {"battery", "level", "57"}), succeeds());
    EXPECT_THAT(in(box, {"battery"}).output, HasSubstr("57 %"));
}

INSTANTIATE_TEST_SUITE_P(, ChrootTest, Values(User::Caller), userName);

} // namespace

// SPDX-License-Identifier: Apache-2.0
#include "PpsTest.h"

#include <dirent.h>
#include <sys/stat.h>
#include <sys/statvfs.h>
#include <sys/xattr.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <memory>
#include <set>
#include <string>

namespace tamotest {
namespace {

using NamesN1 = PpsTest;
using NamesN2 = PpsTest;
using NamesN3 = PpsTest;
using NamesN5 = PpsTest;
using NamesN6 = PpsTest;

struct stat statusOf(const std::string& name)
{
    struct stat status
    {
    };
    EXPECT_EQ(stat(("/pps/" + name).c_str(), &status), 0) << name;
    return status;
}

std::multiset<std::string> list(const char* path)
{
    std::multiset<std::string> names;
    const std::unique_ptr<DIR, int (*)(DIR*)> directory(opendir(path), &closedir);
    if (!directory)
        return {"error"};
    while (const dirent* const entry = readdir(directory.get()))
        names.insert(entry->d_name);
    return names;
}

TEST_F(NamesN1, OptionsFollowTheName)
{
    const PpsDescriptor plain("battery");
    for (const char* const name : {"battery?wait", "battery?changes", "battery?wait,changes",
                                   "battery?changes,wait", "battery?wait,wait"})
        EXPECT_EQ(PpsDescriptor(name, O_RDONLY).error(), 0) << name;
    EXPECT_EQ(PpsDescriptor("battery?wait,serve", O_RDWR).error(), 0);
}

TEST_F(NamesN1, OtherOptionsAreRefused)
{
    const PpsDescriptor plain("battery");
    for (const char* const name :
         {"battery?", "battery?Wait", "battery?wait,", "battery?,wait", "battery?wait,,changes",
          "battery?wait?changes", "battery?delta", "battery?changes,serve", "?wait", "new?bad"}) {
        EXPECT_EQ(PpsDescriptor(name, O_RDWR).error(), EINVAL) << name;
        EXPECT_EQ(PpsDescriptor(name, O_RDWR | O_CREAT).error(), EINVAL) << name;
    }
    EXPECT_THAT(list("/pps"), ::testing::UnorderedElementsAre(".", "..", "battery"));
}

TEST_F(NamesN1, AllViewsAreOneObject)
{
    const PpsDescriptor created("battery?wait");
    ASSERT_EQ(created.error(), 0);
    EXPECT_EQ(PpsDescriptor("battery", O_WRONLY).write("a:n:1\n"), 0);
    EXPECT_EQ(created.read(), "@battery\na:n:1\n");
    EXPECT_EQ(statusOf("battery").st_ino, statusOf("battery?changes").st_ino);
    EXPECT_EQ(statusOf("battery").st_size, statusOf("battery?wait").st_size);
    EXPECT_THAT(list("/pps"), ::testing::UnorderedElementsAre(".", "..", "battery"));
    EXPECT_EQ(PpsDescriptor("battery?wait", O_RDWR | O_CREAT | O_EXCL).error(), EEXIST);
    EXPECT_EQ(unlink("/pps/battery?wait"), 0);
    EXPECT_EQ(PpsDescriptor("battery", O_RDWR).error(), ENOENT);
}

TEST_F(NamesN1, DirectoriesHaveNoOptions)
{
    EXPECT_EQ(mkdir("/pps/a?wait", 0755), -1);
    EXPECT_EQ(errno, EINVAL);
    ASSERT_EQ(mkdir("/pps/a", 0755), 0);
    EXPECT_EQ(PpsDescriptor("a?wait", O_RDONLY).error(), EINVAL);
    EXPECT_EQ(rmdir("/pps/a?wait"), -1);
    EXPECT_EQ(errno, EINVAL);
}

TEST_F(NamesN2, DirectoriesComeAndGo)
{
    ASSERT_EQ(mkdir("/pps/services", 0755), 0);
    ASSERT_EQ(mkdir("/pps/services/power", 0755), 0);
    EXPECT_EQ(mkdir("/pps/services", 0755), -1);
    EXPECT_EQ(errno, EEXIST);
    publish("services/power/battery", "a:n:1\n");
    EXPECT_EQ(contentOf("services/power/battery"), "@battery\na:n:1\n");
    EXPECT_THAT(list("/pps/services/power"), ::testing::UnorderedElementsAre(".", "..", "battery"));
    EXPECT_EQ(rmdir("/pps/services/power"), -1);
    EXPECT_EQ(errno, ENOTEMPTY);
    EXPECT_EQ(unlink("/pps/services"), -1);
    EXPECT_EQ(errno, EISDIR);
    EXPECT_EQ(rmdir("/pps/services/power/battery"), -1);
    EXPECT_EQ(errno, ENOTDIR);
    EXPECT_EQ(unlink("/pps/services/power/battery"), 0);
    EXPECT_EQ(rmdir("/pps/services/power"), 0);
    EXPECT_EQ(rmdir("/pps/services"), 0);
    EXPECT_EQ(rmdir("/pps/services"), -1);
    EXPECT_EQ(errno, ENOENT);
}

TEST_F(NamesN2, AListingOfManyIsComplete)
{
    std::multiset<std::string> expected{".", ".."};
    for (int i = 0; i < 2000; ++i) {
        const std::string name = "object-with-a-long-name-" + std::to_string(i);
        ASSERT_EQ(PpsDescriptor(name).error(), 0);
        expected.insert(name);
    }
    EXPECT_EQ(list("/pps"), expected);
}

TEST_F(NamesN2, LinksNodesAndRenamingAreRefused)
{
    const PpsDescriptor object("o");
    EXPECT_EQ(link("/pps/o", "/pps/p"), -1);
    EXPECT_EQ(errno, EPERM);
    EXPECT_EQ(symlink("/pps/o", "/pps/p"), -1);
    EXPECT_EQ(errno, EPERM);
    EXPECT_EQ(rename("/pps/o", "/pps/p"), -1);
    EXPECT_EQ(errno, EPERM);
    EXPECT_EQ(mkfifo("/pps/p", 0644), -1);
    EXPECT_EQ(errno, EPERM);
    EXPECT_EQ(mknod("/pps/p", S_IFSOCK | 0644, 0), -1);
    EXPECT_EQ(errno, EPERM);
    EXPECT_EQ(mknod("/pps/p", S_IFREG | 0644, 0), 0);
    EXPECT_EQ(PpsDescriptor("p", O_RDWR).error(), 0);
    EXPECT_EQ(setxattr("/pps/o", "user.a", "b", 1, 0), -1);
    EXPECT_EQ(errno, ENOTSUP);
}

TEST_F(NamesN3, NamesThatCannotHeadATextAreRefused)
{
    for (const char* const name : {"a\nb", "a\rb", "\xff", "a\xc0\x80"})
        EXPECT_EQ(PpsDescriptor(name).error(), EINVAL) << name;
    EXPECT_EQ(mkdir("/pps/a\nb", 0755), -1);
    EXPECT_EQ(errno, EINVAL);
    for (const char* const name : {"\xc3\xa4", "a b", "a:b", "-a", "@a", "a.1", "+"}) {
        const PpsDescriptor object(name);
        EXPECT_EQ(object.write("a:n:1\n"), 0) << name;
        EXPECT_EQ(contentOf(name), '@' + std::string(name) + "\na:n:1\n");
        EXPECT_EQ(object.write(contentOf(name)), 0) << name;
    }
}

TEST_F(NamesN3, NamesAreAtMost255BytesWithTheirOptions)
{
    EXPECT_EQ(PpsDescriptor(std::string(255, 'x')).error(), 0);
    EXPECT_EQ(PpsDescriptor(std::string(256, 'x')).error(), ENAMETOOLONG);
    EXPECT_EQ(PpsDescriptor(std::string(250, 'y') + "?wait").error(), 0);
    EXPECT_EQ(PpsDescriptor(std::string(251, 'y') + "?wait").error(), ENAMETOOLONG);
}

TEST_F(NamesN5, StatTellsSizeTimeAndBlockSize)
{
    PpsDescriptor object("o");
    EXPECT_EQ(statusOf("o").st_size, 0);
    const struct stat before = statusOf("o");
    ASSERT_EQ(object.write("a:n:1\nb::two\n"), 0);
    const struct stat after = statusOf("o");
    EXPECT_EQ(after.st_size, static_cast<off_t>(contentOf("o").size()));
    EXPECT_EQ(after.st_blksize, 1 << 20);
    EXPECT_TRUE(S_ISREG(after.st_mode));
    EXPECT_EQ(after.st_nlink, 1U);
    timespec now{};
    clock_gettime(CLOCK_REALTIME, &now);
    EXPECT_GE(after.st_mtim.tv_sec, before.st_mtim.tv_sec);
    EXPECT_LE(now.tv_sec - after.st_mtim.tv_sec, 5);
    EXPECT_EQ(object.write("-a\n-b\n"), 0);
    EXPECT_EQ(statusOf("o").st_size, 3);
    EXPECT_EQ(unlink("/pps/o"), 0);
    struct stat open
    {
    };
    EXPECT_EQ(fstat(object.get(), &open), 0);
    EXPECT_EQ(open.st_nlink, 0U);
}

TEST_F(NamesN5, TheFilesystemTellsItsLimits)
{
    struct statvfs status
    {
    };
    ASSERT_EQ(statvfs("/pps", &status), 0);
    EXPECT_EQ(status.f_namemax, 255U);
}

TEST_F(NamesN6, ThereIsNoPosition)
{
    const PpsDescriptor object("o");
    ASSERT_EQ(object.write("a:n:1\n"), 0);
    char buffer[64];
    EXPECT_EQ(lseek(object.get(), 0, SEEK_SET), -1);
    EXPECT_EQ(errno, ESPIPE);
    EXPECT_EQ(pread(object.get(), buffer, sizeof buffer, 0), -1);
    EXPECT_EQ(errno, ESPIPE);
    EXPECT_EQ(pwrite(object.get(), "a:n:1\n", 6, 0), -1);
    EXPECT_EQ(errno, ESPIPE);
}

} // namespace
} // namespace tamotest

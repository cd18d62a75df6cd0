// SPDX-License-Identifier: Apache-2.0
#include "common/BoxSocket.h"
#include "common/Failure.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <gmock/gmock.h>

using namespace tamobox;
using namespace testing;

namespace {

std::string uniqueName()
{
    return "unit-" + std::to_string(getpid());
}

TEST(BoxSocketTest, NamesAreShortWords)
{
    for (const char* name : {"phone", "phone-2", "A_b.c", "7"})
        EXPECT_TRUE(boxsocket::isName(name)) << name;
    for (const std::string& name :
         {std::string(), std::string("-x"), std::string(".x"), std::string("a/b"),
          std::string("a b"), std::string("a\nb"), std::string("\xc3\xa4"), std::string(49, 'x')})
        EXPECT_FALSE(boxsocket::isName(name)) << name;
}

TEST(BoxSocketTest, ANameIsTakenOnceAndFreeAgainAfterwards)
{
    std::string name = uniqueName();
    {
        const Descriptor first = boxsocket::listen(name);
        EXPECT_THROW(boxsocket::listen(name), Failure);
    }
    EXPECT_NO_THROW(boxsocket::listen(name));
}

TEST(BoxSocketTest, ListeningBoxesAreListedOnce)
{
    std::string name = uniqueName();
    const Descriptor listening = boxsocket::listen(name);
    int count = 0;
    for (const RunningBox& box : boxsocket::running())
        count += box.name == name && box.user == getuid() ? 1 : 0;
    EXPECT_EQ(count, 1);
}

TEST(BoxSocketTest, ABoxThatIsNotThereIsSaid)
{
    try {
        boxsocket::connect("no-such-box");
        FAIL();
    } catch (const Failure& failure) {
        EXPECT_THAT(failure.what(), StartsWith("no box 'no-such-box' is running; "));
    }
}

TEST(BoxSocketTest, AnIntroductionCarriesTheNamespacesAndTheRoot)
{
    std::string name = uniqueName();
    const Descriptor listening = boxsocket::listen(name);
    const pid_t box = fork();
    if (box == 0) {
        fcntl(listening.get(), F_SETFL, 0); // waits for the connection
        const auto opened = [](const char* path) { return Descriptor(open(path, O_RDONLY)); };
        BoxIntroduction introduction;
        introduction.status = "{}";
        introduction.userNamespace = opened("/proc/self/ns/user");
        introduction.mountNamespace = opened("/proc/self/ns/mnt");
        introduction.processNamespace = opened("/proc/self/ns/pid");
        introduction.rootDirectory = opened("/");
        boxsocket::introduce(listening.get(), introduction);
        _exit(0);
    }
    const BoxIntroduction introduction = boxsocket::connect(name);
    EXPECT_EQ(introduction.status, "{}");
    const auto isThat = [](const Descriptor& received, const char* path) {
        struct stat other = {};
        struct stat own = {};
        return fstat(received.get(), &other) == 0 && stat(path, &own) == 0 &&
               other.st_dev == own.st_dev && other.st_ino == own.st_ino;
    };
    EXPECT_TRUE(isThat(introduction.userNamespace, "/proc/self/ns/user"));
    EXPECT_TRUE(isThat(introduction.mountNamespace, "/proc/self/ns/mnt"));
    EXPECT_TRUE(isThat(introduction.processNamespace, "/proc/self/ns/pid"));
    EXPECT_TRUE(isThat(introduction.rootDirectory, "/"));
}

} // namespace

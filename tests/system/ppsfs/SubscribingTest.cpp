// SPDX-License-Identifier: Apache-2.0
#include "PpsTest.h"
#include "WaitingReader.h"

#include <poll.h>
#include <sys/epoll.h>
#include <sys/select.h>
#include <sys/syscall.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <csignal>
#include <string>

namespace tamotest {
namespace {

using SubscribingS1 = PpsTest;
using SubscribingS2 = PpsTest;
using SubscribingS3 = PpsTest;
using SubscribingS4 = PpsTest;
using SubscribingS5 = PpsTest;
using SubscribingS6 = PpsTest;
using SubscribingS7 = PpsTest;
using SubscribingS8 = PpsTest;
using SubscribingS9 = PpsTest;

TEST_F(SubscribingS1, FirstReadReturnsTheWholeObject)
{
    const PpsDescriptor early("o", O_RDONLY | O_CREAT);
    EXPECT_FALSE(early.isReadable());
    EXPECT_EQ(early.read(), "");
    publish("o", "a:n:1\n");
    const PpsDescriptor late("o", O_RDONLY);
    EXPECT_TRUE(late.isReadable());
    EXPECT_EQ(late.read(), "@o\na:n:1\n");
    EXPECT_EQ(late.read(), "");
    EXPECT_EQ(early.read(), "@o\na:n:1\n");
}

TEST_F(SubscribingS2, PollEpollAndSelectReportPublications)
{
    publish("o", "a:n:0\n");
    const PpsDescriptor reader("o", O_RDONLY);
    const int descriptor = reader.get();
    const int epoll = epoll_create1(EPOLL_CLOEXEC);
    epoll_event event{EPOLLIN, {}};
    ASSERT_EQ(epoll_ctl(epoll, EPOLL_CTL_ADD, descriptor, &event), 0);
    reader.read();
    for (int i = 1; i < 4; ++i) {
        EXPECT_FALSE(reader.isReadable());
        EXPECT_EQ(epoll_wait(epoll, &event, 1, 0), 0);
        publish("o", "a:n:" + std::to_string(i) + '\n');
        EXPECT_TRUE(reader.isReadable());
        EXPECT_EQ(epoll_wait(epoll, &event, 1, 10'000), 1);
        EXPECT_EQ(event.events, static_cast<std::uint32_t>(EPOLLIN));
        fd_set readable;
        FD_ZERO(&readable);
        FD_SET(descriptor, &readable);
        timeval timeout{10, 0};
        EXPECT_EQ(select(descriptor + 1, &readable, nullptr, nullptr, &timeout), 1);
        EXPECT_EQ(reader.read(), "@o\na:n:" + std::to_string(i) + '\n');
    }
    close(epoll);
}

TEST_F(SubscribingS2, WaitersAreWoken)
{
    publish("o", "a:n:0\n");
    const PpsDescriptor reader("o", O_RDONLY);
    reader.read();
    for (int i = 1; i < 100; ++i) {
        const pid_t publisher = fork();
        if (publisher == 0)
            _exit(PpsDescriptor("o", O_WRONLY).write("a:n:" + std::to_string(i) + '\n'));
        ASSERT_TRUE(reader.waitUntilReadable());
        EXPECT_EQ(reader.read(), "@o\na:n:" + std::to_string(i) + '\n');
        waitpid(publisher, nullptr, 0);
    }
}

TEST_F(SubscribingS2, EveryPublicationIsAnEdge)
{
    publish("o", "a:n:0\n");
    const PpsDescriptor reader("o", O_RDONLY);
    const int epoll = epoll_create1(EPOLL_CLOEXEC);
    epoll_event event{EPOLLIN | EPOLLET, {}};
    ASSERT_EQ(epoll_ctl(epoll, EPOLL_CTL_ADD, reader.get(), &event), 0);
    EXPECT_EQ(epoll_wait(epoll, &event, 1, 0), 1);
    for (int i = 0; i < 3; ++i) { // without ever reading
        EXPECT_EQ(epoll_wait(epoll, &event, 1, 0), 0);
        publish("o", "a:n:1\n");
        EXPECT_EQ(epoll_wait(epoll, &event, 1, 10'000), 1);
    }
    close(epoll);
}

TEST_F(SubscribingS2, SeveralPublicationsAreOneReading)
{
    const PpsDescriptor reader("o");
    publish("o", "a:n:1\n");
    publish("o", "a:n:2\n");
    publish("o", "b:n:3\n");
    EXPECT_EQ(reader.read(), "@o\na:n:2\nb:n:3\n");
    EXPECT_EQ(reader.read(), "");
}

TEST_F(SubscribingS2, DuplicatesAndInheritedDescriptorsAreOne)
{
    publish("o", "a:n:1\n");
    const PpsDescriptor reader("o", O_RDONLY);
    const int duplicate = dup(reader.get());
    EXPECT_EQ(inChild([&reader] { return reader.read() == "@o\na:n:1\n" ? 0 : 1; }), 0);
    EXPECT_EQ(reader.read(), "");
    publish("o", "a:n:2\n");
    char buffer[64];
    EXPECT_EQ(read(duplicate, buffer, sizeof buffer), 9);
    EXPECT_EQ(reader.read(), "");
    close(duplicate);
    publish("o", "a:n:3\n");
    EXPECT_EQ(reader.read(), "@o\na:n:3\n");
}

TEST_F(SubscribingS3, OwnWritesAreNotTold)
{
    const PpsDescriptor object("o");
    const PpsDescriptor other("o");
    ASSERT_EQ(object.write("a:n:1\n"), 0);
    EXPECT_FALSE(object.isReadable());
    EXPECT_EQ(object.read(), "");
    EXPECT_TRUE(other.isReadable());
    ASSERT_EQ(other.write("b:n:1\n"), 0);
    EXPECT_EQ(object.read(), "@o\na:n:1\nb:n:1\n");
    EXPECT_EQ(other.read(), "@o\na:n:1\nb:n:1\n");
}

TEST_F(SubscribingS4, CatEnds)
{
    publish("o", textOfSize("o", MaxText));
    std::string output;
    EXPECT_EQ(shell("timeout 10 cat /pps/o", &output), 0);
    EXPECT_EQ(output, textOfSize("o", MaxText));
}

TEST_F(SubscribingS5, SmallBuffersAreRefusedAndConsumeNothing)
{
    publish("o", "a:n:1\n");
    const PpsDescriptor reader("o?wait", O_RDONLY);
    EXPECT_EQ(reader.tryRead(1).error, EMSGSIZE);
    EXPECT_EQ(reader.tryRead(8).error, EMSGSIZE);
    EXPECT_TRUE(reader.isReadable());
    const ReadResult exact = reader.tryRead(9);
    EXPECT_EQ(exact.error, 0);
    EXPECT_EQ(exact.text, "@o\na:n:1\n");
    EXPECT_FALSE(reader.isReadable());
}

TEST_F(SubscribingS6, WriteOnlyDescriptorsAreNeverReadable)
{
    publish("o", "a:n:1\n");
    const PpsDescriptor writer("o", O_WRONLY);
    publish("o", "a:n:2\n");
    EXPECT_EQ(writer.events(), POLLOUT | POLLWRNORM);
    EXPECT_EQ(writer.tryRead().error, EBADF);
    unlink("/pps/o");
    EXPECT_EQ(writer.events(), POLLOUT | POLLWRNORM);
}

TEST_F(SubscribingS6, ReadOnlyDescriptorsAreNeverWritable)
{
    publish("o", "a:n:1\n");
    const PpsDescriptor reader("o", O_RDONLY);
    EXPECT_EQ(reader.events(), POLLIN | POLLRDNORM);
    EXPECT_EQ(reader.write("a:n:1\n"), EBADF);
    const PpsDescriptor both("o");
    EXPECT_TRUE(both.isWritable());
}

TEST_F(SubscribingS7, ReadWaitsForTheNextMessage)
{
    const PpsDescriptor object("o?wait");
    WaitingReader reader(object);
    EXPECT_EQ(object.write("own:n:1\n"), 0); // through the descriptor that is being read
    EXPECT_FALSE(reader.isDone());
    publish("o", "a:n:1\n");
    EXPECT_EQ(reader.result().text, "@o\nown:n:1\na:n:1\n");
}

TEST_F(SubscribingS7, SeveralThreadsWaitOnOneDescriptor)
{
    const PpsDescriptor object("o?wait", O_RDONLY | O_CREAT);
    WaitingReader first(object);
    WaitingReader second(object);
    publish("o", "a:n:1\n");
    EXPECT_EQ(first.result().text, "@o\na:n:1\n");
    EXPECT_FALSE(second.isDone());
    publish("o", "a:n:2\n");
    EXPECT_EQ(second.result().text, "@o\na:n:2\n");
}

TEST_F(SubscribingS7, NonBlockingReadFailsInstead)
{
    const PpsDescriptor object("o?wait", O_RDONLY | O_CREAT | O_NONBLOCK);
    EXPECT_EQ(object.tryRead().error, EAGAIN);
    publish("o", "a:n:1\n");
    EXPECT_EQ(object.read(), "@o\na:n:1\n");
    EXPECT_EQ(object.tryRead().error, EAGAIN);
}

TEST_F(SubscribingS7, BlockingIsSwitchedWhileOpen)
{
    const PpsDescriptor object("o?wait", O_RDONLY | O_CREAT);
    object.setNonBlocking(true);
    EXPECT_EQ(object.tryRead().error, EAGAIN);
    object.setNonBlocking(false);
    WaitingReader reader(object);
    publish("o", "a:n:1\n");
    EXPECT_EQ(reader.result().text, "@o\na:n:1\n");
    object.setNonBlocking(true);
    EXPECT_EQ(object.tryRead().error, EAGAIN);
}

TEST_F(SubscribingS7, SignalsEndTheWaiting)
{
    const PpsDescriptor object("o?wait", O_RDONLY | O_CREAT);
    WaitingReader first(object);
    WaitingReader second(object);
    first.interrupt();
    EXPECT_EQ(first.result().error, EINTR);
    publish("o", "a:n:1\n");
    EXPECT_EQ(second.result().text, "@o\na:n:1\n");
}

TEST_F(SubscribingS7, KilledReadersEndAtOnce)
{
    const PpsDescriptor object("o?wait", O_RDONLY | O_CREAT);
    const pid_t reader = fork();
    if (reader == 0)
        _exit(object.read().empty());
    ASSERT_TRUE(waitUntilSleepsIn(reader, reader, SYS_read));
    ASSERT_EQ(kill(reader, SIGKILL), 0);
    int status = 0;
    ASSERT_EQ(waitpid(reader, &status, 0), reader);
    EXPECT_TRUE(WIFSIGNALED(status));
    publish("o", "a:n:1\n"); // which the dead reader has not taken away
    EXPECT_EQ(object.read(), "@o\na:n:1\n");
}

TEST_F(SubscribingS8, ChangesAreReadAfterTheFirstRead)
{
    publish("o", "a:n:1\nb:n:1\nc:n:1\n");
    const PpsDescriptor reader("o?changes", O_RDONLY);
    EXPECT_EQ(reader.read(), "@o\na:n:1\nb:n:1\nc:n:1\n");
    publish("o", "b:n:2\n");
    publish("o", "-a\nd:n:2\n");
    EXPECT_EQ(reader.read(), "@o\nb:n:2\n-a\nd:n:2\n");
    EXPECT_EQ(reader.read(), "");
    publish("o", "c:n:1\n"); // written, though it is the same
    EXPECT_EQ(reader.read(), "@o\nc:n:1\n");
    publish("o", "@o\n");
    EXPECT_EQ(reader.read(), "@o\n");
    publish("o", "e:n:1\n");
    publish("o", "-e\n");
    publish("o", "a:n:3\n");
    EXPECT_EQ(reader.read(), "@o\n-e\na:n:3\n");
}

TEST_F(SubscribingS8, EveryReaderHasChangesOfItsOwn)
{
    publish("o", "a:n:1\n");
    const PpsDescriptor first("o?changes", O_RDONLY);
    const PpsDescriptor second("o?changes", O_RDONLY);
    const PpsDescriptor whole("o", O_RDONLY);
    first.read();
    publish("o", "b:n:1\n");
    EXPECT_EQ(first.read(), "@o\nb:n:1\n");
    publish("o", "c:n:1\n");
    EXPECT_EQ(first.read(), "@o\nc:n:1\n");
    EXPECT_EQ(second.read(), "@o\na:n:1\nb:n:1\nc:n:1\n");
    EXPECT_EQ(whole.read(), "@o\na:n:1\nb:n:1\nc:n:1\n");
}

TEST_F(SubscribingS8, ChangesCanWait)
{
    publish("o", "a:n:1\n");
    const PpsDescriptor object("o?wait,changes");
    EXPECT_EQ(object.read(), "@o\na:n:1\n");
    WaitingReader reader(object);
    publish("o", "b:n:1\n");
    EXPECT_EQ(reader.result().text, "@o\nb:n:1\n");
}

TEST_F(SubscribingS8, ChangesLongerThanAnObjectStartAgain)
{
    const std::string name(MaxText / 3 - 10, 'x');
    publish("o", name + "0::\na::\n");
    const PpsDescriptor reader("o?changes", O_RDONLY);
    reader.read();
    for (int i = 0; i < 3; ++i)
        publish("o", '-' + name + std::to_string(i) + '\n' + name + std::to_string(i + 1) + "::\n");
    EXPECT_EQ(reader.read(), "-@o\n");
    EXPECT_TRUE(reader.isReadable());
    EXPECT_EQ(reader.read(), contentOf("o"));
    EXPECT_FALSE(reader.isReadable());
    publish("o", "c:n:1\n");
    EXPECT_EQ(reader.read(), "@o\nc:n:1\n");
}

TEST_F(SubscribingS9, RemovalIsReadOnce)
{
    publish("o", "a:n:1\n");
    const PpsDescriptor reader("o");
    const PpsDescriptor unread("o?changes");
    const PpsDescriptor waiting("o?wait");
    reader.read();
    waiting.read();
    WaitingReader parked(waiting);
    ASSERT_EQ(unlink("/pps/o"), 0);
    EXPECT_EQ(parked.result().text, "-@o\n");
    EXPECT_EQ(waiting.read(), "");
    for (const PpsDescriptor* const descriptor : {&reader, &unread}) {
        EXPECT_TRUE(descriptor->isReadable());
        EXPECT_EQ(descriptor->read(), "-@o\n");
        EXPECT_FALSE(descriptor->isReadable());
        EXPECT_EQ(descriptor->read(), "");
        EXPECT_EQ(descriptor->write("a:n:1\n"), ENOENT);
    }
}

TEST_F(SubscribingS9, EveryParkedReaderEndsWithTheObject)
{
    const PpsDescriptor waiting("o?wait", O_RDONLY | O_CREAT);
    WaitingReader first(waiting);
    WaitingReader second(waiting);
    ASSERT_EQ(unlink("/pps/o"), 0);
    EXPECT_EQ(first.result().text + second.result().text, "-@o\n");
}

TEST_F(SubscribingS9, ANewObjectOfTheSameNameIsAnother)
{
    publish("o", "a:n:1\n");
    const PpsDescriptor old("o");
    ASSERT_EQ(unlink("/pps/o"), 0);
    publish("o", "b:n:1\n");
    EXPECT_EQ(contentOf("o"), "@o\nb:n:1\n");
    EXPECT_EQ(old.read(), "-@o\n");
    EXPECT_EQ(old.read(), "");
    EXPECT_EQ(old.write("c:n:1\n"), ENOENT);
    EXPECT_EQ(contentOf("o"), "@o\nb:n:1\n");
}

} // namespace
} // namespace tamotest

// SPDX-License-Identifier: Apache-2.0
#include "PpsTest.h"
#include "WaitingReader.h"

#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <string>
#include <thread>

namespace tamotest {
namespace {

using MailboxM1 = PpsTest;
using MailboxM2 = PpsTest;
using MailboxM3 = PpsTest;
using MailboxM5 = PpsTest;
using MailboxM6 = PpsTest;
using MailboxM7 = PpsTest;
using MailboxM10 = PpsTest;

TEST_F(MailboxM1, SecondServerIsRefused)
{
    PpsDescriptor server("box?serve");
    ASSERT_EQ(server.error(), 0);
    EXPECT_EQ(PpsDescriptor("box?serve").error(), EBUSY);
    EXPECT_EQ(PpsDescriptor("box?wait,serve", O_RDONLY).error(), EBUSY);
    server.close();
    EXPECT_EQ(PpsDescriptor("box?serve", O_RDONLY).error(), 0);
}

TEST_F(MailboxM1, AServersDescriptorIsClosedByItsLastHolder)
{
    PpsDescriptor server("box?serve");
    const int duplicate = dup(server.get());
    server.close();
    EXPECT_EQ(PpsDescriptor("box?serve").error(), EBUSY);
    close(duplicate);
    EXPECT_EQ(PpsDescriptor("box?serve").error(), 0);
}

TEST_F(MailboxM1, AServerMustRead)
{
    EXPECT_EQ(PpsDescriptor("box?serve", O_WRONLY | O_CREAT).error(), EINVAL);
    EXPECT_EQ(PpsDescriptor("box", O_RDONLY).error(), ENOENT); // nothing was left behind
    publish("box", "a:n:1\n");
    EXPECT_EQ(PpsDescriptor("box?serve", O_WRONLY).error(), EINVAL);
    EXPECT_EQ(contentOf("box"), "@box\na:n:1\n"); // and it is not a mailbox
}

TEST_F(MailboxM2, WhatWasPublishedIsGone)
{
    publish("box", "a:n:1\n");
    const PpsDescriptor subscriber("box");
    EXPECT_TRUE(subscriber.isReadable());
    {
        const PpsDescriptor server("box?serve");
        EXPECT_FALSE(subscriber.isReadable());
        EXPECT_EQ(contentOf("box"), "");
    }
    EXPECT_EQ(contentOf("box"), "");
    EXPECT_EQ(subscriber.write("a:n:2\n"), EPIPE); // a client from then on
    struct stat status
    {
    };
    EXPECT_EQ(fstat(subscriber.get(), &status), 0);
    EXPECT_EQ(status.st_size, 0);
}

TEST_F(MailboxM2, ItIsAMailboxUntilItIsRemoved)
{
    PpsDescriptor("box?serve").close();
    EXPECT_EQ(PpsDescriptor("box").write("a:n:1\n"), EPIPE);
    ASSERT_EQ(unlink("/pps/box"), 0);
    EXPECT_EQ(PpsDescriptor("box").write("a:n:1\n"), 0);
    EXPECT_EQ(contentOf("box"), "@box\na:n:1\n");
}

TEST_F(MailboxM2, ClientNumbersAreNeverUsedAgain)
{
    const PpsDescriptor server("box?serve");
    for (int i = 1; i <= 3; ++i) {
        EXPECT_EQ(PpsDescriptor("box").write("a:n:1\n"), 0);
        const std::string address = "@box." + std::to_string(i);
        EXPECT_THAT(server.read(), ::testing::StartsWith('+' + address + '\n'));
        EXPECT_EQ(server.read(), address + "\na:n:1\n");
        EXPECT_EQ(server.read(), '-' + address + '\n');
    }
}

TEST_F(MailboxM3, RequestsReachTheServerWholeAndInOrder)
{
    const PpsDescriptor server("box?serve");
    const PpsDescriptor first("box");
    const PpsDescriptor second("box");
    ASSERT_EQ(first.write("msg::one\n"), 0);
    ASSERT_EQ(second.write("@box\nmsg::two\n-gone\n"), 0);
    ASSERT_EQ(first.write("msg::three"), 0);
    server.read();
    server.read(); // two clients have come
    EXPECT_EQ(server.read(), "@box.1\nmsg::one\n");
    EXPECT_EQ(server.read(), "@box.2\nmsg::two\n-gone\n");
    EXPECT_EQ(server.read(), "@box.1\nmsg::three\n");
    EXPECT_EQ(server.read(), "");
}

TEST_F(MailboxM3, MalformedRequestsAreRefused)
{
    const PpsDescriptor server("box?serve");
    const PpsDescriptor client("box");
    server.read();
    for (const char* const text : {"msg:n:x\n", "@box.1\nmsg::a\n", "@other\nmsg::a\n", "@box\n",
                                   "-@box\n", "+@box.1\na:n:1\n", "msg::a\n@box.2\nmsg::b\n"})
        EXPECT_EQ(client.write(text), EINVAL) << text;
    EXPECT_FALSE(server.isReadable());
}

TEST_F(MailboxM3, ARequestWithItsAddressIsAsLongAsAMessageCanBe)
{
    const PpsDescriptor server("box?serve");
    const PpsDescriptor client("box");
    server.read();
    const std::string text =
        "a::" + std::string(MaxText - 3 - 1 - 7, 'x'); // 7: `@box.1` and its end
    EXPECT_EQ(client.write(text + "xx"), EFBIG);
    EXPECT_EQ(client.write(text), 0);
    EXPECT_EQ(server.read(), "@box.1\n" + text + '\n');
}

TEST_F(MailboxM5, AFullQueueOfRequestsFailsAtOnce)
{
    const PpsDescriptor server("box?serve");
    const PpsDescriptor client("box");
    const PpsDescriptor other("box");
    for (int i = 0; i < 128; ++i) {
        EXPECT_TRUE(client.isWritable());
        ASSERT_EQ(client.write("n:n:" + std::to_string(i) + '\n'), 0);
    }
    EXPECT_FALSE(client.isWritable());
    EXPECT_EQ(client.write("n:n:128\n"), EAGAIN);
    EXPECT_TRUE(other.isWritable());
    EXPECT_EQ(other.write("n:n:0\n"), 0);
    server.read();
    server.read();
    EXPECT_FALSE(client.isWritable());
    EXPECT_EQ(server.read(), "@box.1\nn:n:0\n");
    EXPECT_TRUE(client.isWritable());
    EXPECT_EQ(client.write("n:n:128\n"), 0);
    for (int i = 1; i < 128; ++i)
        ASSERT_EQ(server.read(), "@box.1\nn:n:" + std::to_string(i) + '\n');
    EXPECT_EQ(server.read(), "@box.2\nn:n:0\n");
    EXPECT_EQ(server.read(), "@box.1\nn:n:128\n");
}

TEST_F(MailboxM5, QueuesAreBoundedInBytesToo)
{
    const PpsDescriptor server("box?serve");
    const PpsDescriptor client("box");
    const std::string text = "a::" + std::string(1'000'000, 'x') + '\n';
    for (int i = 0; i < 4; ++i)
        ASSERT_EQ(client.write(text), 0);
    EXPECT_EQ(client.write(text), EAGAIN);
    EXPECT_FALSE(client.isWritable());
    EXPECT_EQ(client.write("a:n:1\n"), 0); // this one fits
    server.read();
    server.read();
    EXPECT_TRUE(client.isWritable());
    EXPECT_EQ(client.write(text), 0);
}

TEST_F(MailboxM5, RequestsOfClientsThatHaveGoneAreBoundedToo)
{
    const PpsDescriptor server("box?serve");
    const PpsDescriptor waiting("box");
    const std::string text = "a::" + std::string(1'000'000, 'x') + '\n';
    int accepted = 0;
    for (int visits = 0; visits < 20; ++visits) {
        const PpsDescriptor client("box");
        while (client.write(text) == 0)
            ++accepted;
    }
    EXPECT_EQ(accepted, 67); // megabytes of 1,000,000, in 64 of 1,048,576
    EXPECT_FALSE(waiting.isWritable());
    EXPECT_TRUE(eventually([&] { return waiting.isWritable() || server.read().empty(); }));
    EXPECT_EQ(waiting.write(text), 0);
}

TEST_F(MailboxM5, AFullQueueOfAnswersFailsAtOnce)
{
    const PpsDescriptor server("box?serve");
    const PpsDescriptor client("box");
    const PpsDescriptor other("box");
    for (int i = 0; i < 128; ++i)
        ASSERT_EQ(server.write("@box.1\nn:n:" + std::to_string(i) + '\n'), 0);
    EXPECT_EQ(server.write("@box.2\nn:n:0\n@box.1\nn:n:128\n"), EAGAIN);
    EXPECT_EQ(other.read(), ""); // delivered whole or not at all
    EXPECT_TRUE(server.isWritable());
    EXPECT_EQ(client.read(), "@box\nn:n:0\n");
    EXPECT_EQ(server.write("@box.2\nn:n:0\n@box.1\nn:n:128\n"), 0);
    EXPECT_EQ(other.read(), "@box\nn:n:0\n");
    for (int i = 1; i <= 128; ++i)
        ASSERT_EQ(client.read(), "@box\nn:n:" + std::to_string(i) + '\n');
}

TEST_F(MailboxM5, PollWaitsForRoom)
{
    const PpsDescriptor server("box?serve");
    const PpsDescriptor client("box");
    server.read();
    while (client.write("n:n:1\n") == 0)
        continue;
    std::thread reader([&server] { server.read(); });
    EXPECT_TRUE(client.waitUntilWritable());
    reader.join();
}

TEST_F(MailboxM5, AQueueThatIsDroppedHasRoom)
{
    PpsDescriptor server("box?serve");
    const PpsDescriptor client("box");
    while (client.write("n:n:1\n") == 0)
        continue;
    server.close();
    const PpsDescriptor next("box?serve");
    EXPECT_TRUE(client.isWritable());
    EXPECT_EQ(client.write("n:n:2\n"), 0);
}

TEST_F(MailboxM6, WithoutAServerWritesFail)
{
    const PpsDescriptor early("box");
    PpsDescriptor server("box?serve");
    EXPECT_EQ(early.write("a:n:1\n"), 0);
    server.close();
    EXPECT_EQ(early.write("a:n:1\n"), EPIPE);
    EXPECT_EQ(PpsDescriptor("box").write("a:n:1\n"), EPIPE);
    EXPECT_TRUE(early.isWritable()); // it does not wait for anything
}

TEST_F(MailboxM7, AClientReadsNothingButItsAnswers)
{
    const PpsDescriptor server("box?serve");
    const PpsDescriptor first("box");
    const PpsDescriptor second("box");
    EXPECT_EQ(first.read(), "");
    ASSERT_EQ(first.write("a:n:1\n"), 0);
    EXPECT_FALSE(first.isReadable());
    EXPECT_FALSE(second.isReadable());
    ASSERT_EQ(server.write("@box.1\nb:n:1\n"), 0);
    EXPECT_FALSE(second.isReadable());
    EXPECT_EQ(first.read(), "@box\nb:n:1\n");
    EXPECT_EQ(first.read(), "");
    const PpsDescriptor third("box");
    EXPECT_EQ(third.read(), "");
}

TEST_F(MailboxM10, ClientsAndServersWait)
{
    const PpsDescriptor server("box?wait,serve");
    const PpsDescriptor client("box?wait");
    server.read();
    WaitingReader waitingServer(server);
    WaitingReader waitingClient(client);
    ASSERT_EQ(client.write("a:n:1\n"), 0);
    EXPECT_EQ(waitingServer.result().text, "@box.1\na:n:1\n");
    ASSERT_EQ(server.write("@box.1\nb:n:1\n"), 0);
    EXPECT_EQ(waitingClient.result().text, "@box\nb:n:1\n");
    client.setNonBlocking(true);
    EXPECT_EQ(client.tryRead().error, EAGAIN);
}

TEST_F(MailboxM10, ASubscriberThatWaitsWhenTheServerComesGoesOnWaiting)
{
    const PpsDescriptor client("box?wait");
    WaitingReader waiting(client);
    const PpsDescriptor server("box?serve");
    EXPECT_FALSE(waiting.isDone());
    ASSERT_EQ(server.write("@box.1\na:n:1\n"), 0);
    EXPECT_EQ(waiting.result().text, "@box\na:n:1\n");
}

} // namespace
} // namespace tamotest

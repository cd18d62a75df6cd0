// SPDX-License-Identifier: Apache-2.0
#include "PpsTest.h"
#include "WaitingReader.h"

#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <csignal>
#include <string>
#include <thread>

namespace tamotest {
namespace {

using MailboxM4 = PpsTest;
using MailboxM8 = PpsTest;
using MailboxM9 = PpsTest;

std::string arrival(int client, pid_t process)
{
    return "+@box." + std::to_string(client) + "\npid:n:" + std::to_string(process) +
           "\nuid:n:" + std::to_string(geteuid()) + "\ngid:n:" + std::to_string(getegid()) + '\n';
}

TEST_F(MailboxM4, AnswersReachTheirClientsAlone)
{
    const PpsDescriptor server("box?serve");
    const PpsDescriptor first("box");
    const PpsDescriptor second("box");
    ASSERT_EQ(server.write("@box.1\na:n:1\n-b\n@box.2\na:n:2\n@box.1\n@box.2\nc::x"), 0);
    EXPECT_EQ(first.read(), "@box\na:n:1\n-b\n");
    EXPECT_EQ(first.read(), "@box\n");
    EXPECT_EQ(first.read(), "");
    EXPECT_EQ(second.read(), "@box\na:n:2\n");
    EXPECT_EQ(second.read(), "@box\nc::x\n");
    EXPECT_EQ(second.read(), "");
}

TEST_F(MailboxM4, AnAnswerThatCannotBeDeliveredIsNotDeliveredInPart)
{
    const PpsDescriptor server("box?serve");
    const PpsDescriptor client("box");
    for (const char* const text :
         {"a:n:1\n", "@box\na:n:1\n", "@other.1\na:n:1\n", "@box.1\na:n:1\n@box.x\n",
          "@box.1\na:n:x\n", "@box.01\na:n:1\n", "@box.1\na:n:1\n-@box.1\n", "@box.\na:n:1\n",
          "@box.1x\na:n:1\n", "@box.+1\na:n:1\n", "@boxx1\na:n:1\n"})
        EXPECT_EQ(server.write(text), EINVAL) << text;
    EXPECT_EQ(server.write("@box.1\na:n:1\n@box.7\na:n:1\n"), ENOENT);
    EXPECT_FALSE(client.isReadable());
}

TEST_F(MailboxM4, AClientThatHasGoneIsNotThere)
{
    const PpsDescriptor server("box?serve");
    PpsDescriptor client("box");
    EXPECT_EQ(server.write("@box.1\na:n:1\n"), 0);
    client.close();
    EXPECT_EQ(server.write("@box.1\na:n:1\n"), ENOENT);
}

TEST_F(MailboxM4, WhatAWriteOnlyClientIsSentIsDropped)
{
    const PpsDescriptor server("box?serve");
    const PpsDescriptor client("box", O_WRONLY);
    for (int i = 0; i < 200; ++i)
        ASSERT_EQ(server.write("@box.1\na:n:1\n"), 0);
}

TEST_F(MailboxM8, ClientsComeAndGo)
{
    const PpsDescriptor server("box?serve");
    EXPECT_FALSE(server.isReadable());
    PpsDescriptor client("box");
    EXPECT_TRUE(server.isReadable());
    EXPECT_EQ(server.read(), arrival(1, getpid()));
    ASSERT_EQ(client.write("a:n:1\n"), 0);
    client.close();
    ASSERT_TRUE(server.waitUntilReadable());
    EXPECT_EQ(server.read(), "@box.1\na:n:1\n");
    EXPECT_EQ(server.read(), "-@box.1\n");
    EXPECT_EQ(server.read(), "");
}

TEST_F(MailboxM8, AClientsDeathIsToldToo)
{
    const PpsDescriptor server("box?serve");
    const pid_t client = fork();
    if (client == 0) {
        const PpsDescriptor box("box");
        pause();
    }
    ASSERT_TRUE(server.waitUntilReadable());
    EXPECT_EQ(server.read(), arrival(1, client));
    kill(client, SIGKILL);
    ASSERT_TRUE(server.waitUntilReadable());
    EXPECT_EQ(server.read(), "-@box.1\n");
    waitpid(client, nullptr, 0);
}

TEST_F(MailboxM8, AServerSeesTheClientsThatAreThere)
{
    const PpsDescriptor first("box");
    PpsDescriptor server("box?serve");
    const PpsDescriptor second("box");
    EXPECT_EQ(server.read(), arrival(1, getpid()));
    server.close();
    const PpsDescriptor next("box?serve");
    EXPECT_EQ(next.read(), arrival(1, getpid()));
    EXPECT_EQ(next.read(), arrival(2, getpid()));
    EXPECT_EQ(next.read(), "");
}

TEST_F(MailboxM8, AClientIsKnownByItsProcessNotByItsThread)
{
    const PpsDescriptor server("box?serve");
    PpsDescriptor client;
    std::thread([&client] { client = PpsDescriptor("box"); }).join();
    EXPECT_EQ(server.read(), arrival(1, getpid()));
}

TEST_F(MailboxM8, AVisitWithoutARequestIsNotMentioned)
{
    const PpsDescriptor server("box?serve");
    PpsDescriptor("box").close();
    EXPECT_EQ(PpsDescriptor("box").write("a:n:1\n"), 0);
    EXPECT_EQ(server.read(), arrival(2, getpid()));
    EXPECT_EQ(server.read(), "@box.2\na:n:1\n");
    EXPECT_EQ(server.read(), "-@box.2\n");
    EXPECT_EQ(server.read(), "");
}

TEST_F(MailboxM9, UnreadRequestsAreReported)
{
    PpsDescriptor server("box?serve");
    const PpsDescriptor first("box");
    const PpsDescriptor second("box");
    ASSERT_EQ(first.write("a:n:1\n"), 0);
    ASSERT_EQ(first.write("a:n:2\n"), 0);
    ASSERT_EQ(first.write("a:n:3\n"), 0);
    server.read();
    server.read();
    EXPECT_EQ(server.read(), "@box.1\na:n:1\n");
    ASSERT_EQ(server.write("@box.1\nanswer:n:1\n"), 0);
    server.close();
    ASSERT_TRUE(first.waitUntilReadable());
    EXPECT_EQ(first.read(), "@box\nanswer:n:1\n");
    EXPECT_EQ(first.read(), "@box\nundelivered:n:2\n");
    EXPECT_EQ(first.read(), "");
    EXPECT_EQ(second.read(), "");
    EXPECT_EQ(contentOf("box"), "");
}

TEST_F(MailboxM9, ReportsThatNobodyReadsAreOneReport)
{
    const PpsDescriptor client("box");
    for (int i = 0; i < 200; ++i) {
        const PpsDescriptor server("box?serve");
        ASSERT_EQ(client.write("a:n:1\n"), 0);
    }
    EXPECT_EQ(client.read(), "@box\nundelivered:n:200\n");
    EXPECT_EQ(client.read(), "");
}

TEST_F(MailboxM9, TheReportComesThroughAFullQueue)
{
    const PpsDescriptor client("box");
    {
        const PpsDescriptor server("box?serve");
        ASSERT_EQ(client.write("a:n:1\n"), 0);
        while (server.write("@box.1\na:n:1\n") == 0)
            continue;
    }
    for (int i = 0; i < 128; ++i)
        ASSERT_EQ(client.read(), "@box\na:n:1\n");
    EXPECT_EQ(client.read(), "@box\nundelivered:n:1\n");
}

TEST_F(MailboxM9, AKilledServerIsAClosedOne)
{
    PpsDescriptor("box?serve").close();
    const PpsDescriptor client("box?wait");
    const pid_t server = fork();
    if (server == 0) {
        const PpsDescriptor box("box?serve");
        pause();
    }
    ASSERT_TRUE(eventually([&client] { return client.write("a:n:1\n") == 0; }));
    WaitingReader waiting(client);
    kill(server, SIGKILL);
    EXPECT_EQ(waiting.result().text, "@box\nundelivered:n:1\n");
    waitpid(server, nullptr, 0);
    EXPECT_EQ(client.write("a:n:1\n"), EPIPE);
}

TEST_F(MailboxM9, RemovalIsReadAfterWhatWasThere)
{
    const PpsDescriptor server("box?serve");
    const PpsDescriptor client("box?wait");
    const PpsDescriptor idle("box");
    ASSERT_EQ(client.write("a:n:1\n"), 0);
    ASSERT_EQ(server.write("@box.1\nb:n:1\n"), 0);
    ASSERT_EQ(unlink("/pps/box"), 0);
    EXPECT_EQ(client.read(), "@box\nb:n:1\n");
    EXPECT_EQ(client.read(), "-@box\n");
    EXPECT_EQ(client.read(), "");
    EXPECT_EQ(idle.read(), "-@box\n");
    EXPECT_EQ(idle.read(), "");
    EXPECT_EQ(server.read(), arrival(1, getpid()));
    EXPECT_EQ(server.read(), arrival(2, getpid()));
    EXPECT_EQ(server.read(), "@box.1\na:n:1\n");
    EXPECT_EQ(server.read(), "-@box\n");
    EXPECT_EQ(server.read(), "");
    EXPECT_EQ(server.write("@box.1\nb:n:1\n"), ENOENT);
    EXPECT_EQ(client.write("a:n:1\n"), ENOENT);
}

} // namespace
} // namespace tamotest

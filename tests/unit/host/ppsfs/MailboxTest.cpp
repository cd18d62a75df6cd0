// SPDX-License-Identifier: Apache-2.0
#include "Limits.h"
#include "OpenObject.h"

#include <gtest/gtest.h>

#include <cerrno>
#include <list>
#include <string>

namespace tamotest {
namespace {

const std::string Opener = "pid:n:100\nuid:n:1000\ngid:n:1001\n";

class Mailbox : public ::testing::Test
{
protected:
    ppsfs::ObjectStore store{ppsfs::NodeStatus()};
};

TEST_F(Mailbox, HasOneServer)
{
    EXPECT_EQ(OpenObject(store, "box?serve", OpenObject::Write).error(), EINVAL);
    OpenObject server(store, "box?serve");
    ASSERT_EQ(server.error(), 0);
    EXPECT_EQ(OpenObject(store, "box?serve").error(), EBUSY);
    server.close();
    EXPECT_EQ(OpenObject(store, "box?serve").error(), 0);
}

TEST_F(Mailbox, TurnsSubscribersIntoClients)
{
    OpenObject early(store, "box");
    OpenObject(store, "box").write("a:n:1\n");
    EXPECT_TRUE(early.handle().isReadable());
    OpenObject server(store, "box?serve");
    EXPECT_FALSE(early.handle().isReadable());
    EXPECT_EQ(early.handle().object()->textSize(), 0U);
    EXPECT_EQ(server.read(), "+@box.1\n" + Opener);
    EXPECT_EQ(early.write("b:n:1\n"), 0);
    EXPECT_EQ(server.read(), "@box.1\nb:n:1\n");
}

TEST_F(Mailbox, CarriesRequestsAndAnswers)
{
    OpenObject server(store, "box?serve");
    OpenObject first(store, "box");
    OpenObject second(store, "box");
    server.takeWakes();
    ASSERT_EQ(second.write("@box\nmsg::a\n"), 0);
    EXPECT_EQ(server.takeWakes(), 1);
    EXPECT_EQ(server.read(), "+@box.1\n" + Opener);
    EXPECT_EQ(server.read(), "+@box.2\n" + Opener);
    EXPECT_EQ(server.read(), "@box.2\nmsg::a\n");
    ASSERT_EQ(server.write("@box.2\nres::b\n@box.1\nres::c\n@box.2\nres::d"), 0);
    EXPECT_EQ(first.read(), "@box\nres::c\n");
    EXPECT_EQ(second.read(), "@box\nres::b\n");
    EXPECT_EQ(second.read(), "@box\nres::d\n");
    EXPECT_FALSE(first.handle().isReadable() || second.handle().isReadable());
}

TEST_F(Mailbox, DeliversAnswersWholeOrNotAtAll)
{
    OpenObject server(store, "box?serve");
    OpenObject first(store, "box");
    OpenObject second(store, "box");
    first.takeWakes();
    EXPECT_EQ(server.write("@box.1\na:n:1\n@box.3\n"), ENOENT);
    EXPECT_EQ(server.write("@box.1\na:n:1\n@box.99999999999999999999\n"), EINVAL);
    EXPECT_EQ(server.write("@box.1\na:n:1\nb\n"), EINVAL);
    EXPECT_EQ(server.write("a:n:1\n@box.1\n"), EINVAL);
    for (std::size_t i = 0; i < ppsfs::limits::QueuedMessages; ++i)
        ASSERT_EQ(server.write("@box.2\nn:n:" + std::to_string(i) + "\n"), 0);
    EXPECT_EQ(server.write("@box.1\na:n:1\n@box.1\na:n:2\n@box.2\na:n:3\n"), EAGAIN);
    EXPECT_EQ(first.takeWakes(), 0);
    EXPECT_FALSE(first.handle().isReadable());
    EXPECT_EQ(second.read(), "@box\nn:n:0\n");
    EXPECT_EQ(server.write("@box.2\na:n:3\n"), 0);
}

TEST_F(Mailbox, BoundsTheRequestsOfOneClient)
{
    OpenObject server(store, "box?serve");
    OpenObject client(store, "box");
    for (std::size_t i = 0; i < ppsfs::limits::QueuedMessages; ++i)
        ASSERT_EQ(client.write("a:n:1\n"), 0);
    EXPECT_EQ(client.write("a:n:1\n"), EAGAIN);
    EXPECT_FALSE(client.handle().isWritable());
    server.read();
    client.takeWakes();
    server.read();
    EXPECT_EQ(client.takeWakes(), 1);
    EXPECT_TRUE(client.handle().isWritable());
}

TEST_F(Mailbox, BoundsTheRequestsOfAllClients)
{
    OpenObject server(store, "box?serve");
    OpenObject waiting(store, "box");
    const std::string text = "a::" + std::string(1'000'000, 'x');
    std::size_t accepted = 0;
    for (int visits = 0; visits < 100; ++visits) { // each leaves at once, its requests do not
        OpenObject client(store, "box");
        while (client.write(text) == 0)
            ++accepted;
    }
    EXPECT_EQ(accepted, ppsfs::limits::InboxBytes / (text.size() + 10));
    EXPECT_FALSE(waiting.handle().isWritable());
    waiting.takeWakes();
    while (!waiting.handle().isWritable())
        ASSERT_NE(server.read(), "");
    EXPECT_GE(waiting.takeWakes(), 1);
}

TEST_F(Mailbox, MentionsVisitorsWithRequestsOnly)
{
    OpenObject server(store, "box?serve");
    for (int i = 0; i < 1000; ++i)
        OpenObject(store, "box").close();
    EXPECT_FALSE(server.handle().isReadable());
    OpenObject(store, "box").write("a:n:1\n");
    EXPECT_EQ(server.read(), "+@box.1001\n" + Opener);
    EXPECT_EQ(server.read(), "@box.1001\na:n:1\n");
    EXPECT_EQ(server.read(), "-@box.1001\n");
    EXPECT_EQ(server.read(), "");
}

TEST_F(Mailbox, ReportsWhatAServerDidNotRead)
{
    OpenObject server(store, "box?serve");
    OpenObject client(store, "box");
    client.write("a:n:1\n");
    client.write("a:n:2\n");
    server.write("@box.1\nb:n:1\n");
    client.takeWakes();
    server.close();
    EXPECT_GE(client.takeWakes(), 1);
    EXPECT_EQ(client.write("a:n:3\n"), EPIPE);
    OpenObject next(store, "box?serve");
    client.write("a:n:4\n");
    next.close();
    EXPECT_EQ(client.read(), "@box\nb:n:1\n");
    EXPECT_EQ(client.read(), "@box\nundelivered:n:3\n");
    EXPECT_EQ(client.read(), "");
}

TEST_F(Mailbox, ShowsANewServerTheClientsThatAreThere)
{
    OpenObject first(store, "box");
    OpenObject(store, "box?serve").close();
    OpenObject second(store, "box");
    OpenObject server(store, "box?serve");
    EXPECT_EQ(server.read(), "+@box.1\n" + Opener);
    first.close();
    EXPECT_EQ(server.read(), "+@box.2\n" + Opener);
    EXPECT_EQ(server.read(), "-@box.1\n");
}

TEST_F(Mailbox, IsReadToItsEndWhenItIsRemoved)
{
    OpenObject server(store, "box?serve");
    OpenObject client(store, "box");
    client.write("a:n:1\n");
    server.write("@box.1\nb:n:1\n");
    ASSERT_EQ(store.removeObject(*store.root(), "box"), 0);
    EXPECT_EQ(client.read(), "@box\nb:n:1\n");
    EXPECT_EQ(client.read(), "-@box\n");
    EXPECT_EQ(client.write("a:n:1\n"), ENOENT);
    client.close();
    EXPECT_EQ(server.read(), "+@box.1\n" + Opener);
    EXPECT_EQ(server.read(), "@box.1\na:n:1\n");
    EXPECT_EQ(server.read(), "-@box\n");
    EXPECT_EQ(server.read(), "");
}

} // namespace
} // namespace tamotest

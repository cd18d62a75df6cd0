// SPDX-License-Identifier: Apache-2.0
#include "Limits.h"
#include "OpenObject.h"

#include <gtest/gtest.h>

#include <cerrno>
#include <string>
#include <vector>

namespace tamotest {
namespace {

class Publishing : public ::testing::Test
{
protected:
    std::string content() { return OpenObject(store, "o", OpenObject::Read).read(); }

    ppsfs::ObjectStore store{ppsfs::NodeStatus()};
};

TEST_F(Publishing, MergesInPlace)
{
    OpenObject object(store, "o");
    EXPECT_EQ(content(), "");
    ASSERT_EQ(object.write("a:n:1\nb:n:1\nc:n:1\n"), 0);
    ASSERT_EQ(object.write("@o\nd:n:2\nb::two\n-a\n-unknown"), 0);
    EXPECT_EQ(content(), "@o\nb::two\nc:n:1\nd:n:2\n");
}

TEST_F(Publishing, FailsWithoutATrace)
{
    OpenObject object(store, "o");
    OpenObject reader(store, "o");
    ASSERT_EQ(object.write("a:n:1\n"), 0);
    reader.read();
    reader.takeWakes();
    for (const char* const text : {"a:n:2\nb\n", "@p\n", "-@o\n", "+@o.1\n", "a:n:2\n\n"})
        EXPECT_EQ(object.write(text), EINVAL) << text;
    EXPECT_EQ(object.write("b::" + std::string(ppsfs::limits::TextSize, 'x')), EFBIG);
    EXPECT_EQ(reader.takeWakes(), 0);
    EXPECT_FALSE(reader.handle().isReadable());
    EXPECT_EQ(content(), "@o\na:n:1\n");
}

TEST_F(Publishing, LastOfManyRepeatedNamesCounts)
{
    OpenObject object(store, "o");
    std::string text;
    for (int i = 0; i < 100; ++i)
        text += "a" + std::to_string(i % 50) + ":n:" + std::to_string(i) + "\n";
    ASSERT_EQ(object.write(text + "-a1\n"), 0);
    std::string expected = "@o\n";
    for (int i = 0; i < 50; ++i) {
        if (i != 1)
            expected += "a" + std::to_string(i) + ":n:" + std::to_string(i + 50) + "\n";
    }
    EXPECT_EQ(content(), expected);
}

TEST_F(Publishing, TruncationReplacesOnceAndOnlyOnSuccess)
{
    OpenObject(store, "o").write("a:n:1\nb:n:1\n");
    OpenObject writer(store, "o", OpenObject::Write, true);
    EXPECT_EQ(writer.write("c:n:\n"), EINVAL);
    EXPECT_EQ(content(), "@o\na:n:1\nb:n:1\n");
    EXPECT_EQ(writer.write("c:n:1\nb:n:2\n-d\n"), 0);
    EXPECT_EQ(content(), "@o\nc:n:1\nb:n:2\n");
    EXPECT_EQ(writer.write("d:n:1\n"), 0);
    EXPECT_EQ(content(), "@o\nc:n:1\nb:n:2\nd:n:1\n");
}

TEST_F(Publishing, TheLimitCountsTheResult)
{
    OpenObject object(store, "o");
    const std::string most = "a::" + std::string(ppsfs::limits::TextSize - 3 - 3 - 1, 'x');
    ASSERT_EQ(object.write(most), 0);
    EXPECT_EQ(object.handle().object()->textSize(), ppsfs::limits::TextSize);
    EXPECT_EQ(object.write("b::\n"), EFBIG);
    EXPECT_EQ(object.write("a::x\nb::\n"), 0);
    EXPECT_EQ(content(), "@o\na::x\nb::\n");
}

TEST_F(Publishing, WakesEverySubscriberButThePublisher)
{
    OpenObject publisher(store, "o");
    OpenObject first(store, "o");
    OpenObject second(store, "o?changes", OpenObject::Read);
    OpenObject deaf(store, "o", OpenObject::Write);
    ASSERT_EQ(publisher.write("a:n:1\n"), 0);
    ASSERT_EQ(publisher.write("a:n:2\n"), 0);
    EXPECT_EQ(first.takeWakes(), 2);
    EXPECT_EQ(second.takeWakes(), 2);
    EXPECT_EQ(publisher.takeWakes(), 0);
    EXPECT_EQ(deaf.takeWakes(), 0);
    EXPECT_FALSE(deaf.handle().isReadable());
    EXPECT_FALSE(publisher.handle().isReadable());
    EXPECT_EQ(first.read(), "@o\na:n:2\n");
    EXPECT_EQ(first.read(), "");
}

TEST_F(Publishing, ReadersShareOneText)
{
    OpenObject publisher(store, "o");
    ASSERT_EQ(publisher.write("a:n:1\n"), 0);
    OpenObject first(store, "o");
    OpenObject second(store, "o?wait");
    EXPECT_EQ(first.handle().message().data(), second.handle().message().data());
}

TEST_F(Publishing, ChangesAreTheLinesSinceTheLastRead)
{
    OpenObject publisher(store, "o");
    publisher.write("a:n:1\nb:n:1\nc:n:1\n");
    OpenObject reader(store, "o?changes");
    EXPECT_EQ(reader.read(), "@o\na:n:1\nb:n:1\nc:n:1\n");
    publisher.write("c:n:2\n");
    publisher.write("a:n:2\n-b\n");
    reader.write("own:n:1\n");
    EXPECT_EQ(reader.read(), "@o\nc:n:2\na:n:2\n-b\nown:n:1\n");
    publisher.write("b:n:3\n");
    EXPECT_EQ(reader.read(), "@o\nb:n:3\n");
    EXPECT_EQ(reader.read(), "");
    EXPECT_EQ(content(), "@o\na:n:2\nc:n:2\nown:n:1\nb:n:3\n");
}

TEST_F(Publishing, ChangesThatWereForgottenStartAgain)
{
    OpenObject publisher(store, "o");
    OpenObject reader(store, "o?changes");
    OpenObject current(store, "o?changes");
    publisher.write("first:n:1\n");
    EXPECT_EQ(reader.read(), "@o\nfirst:n:1\n");
    const std::string name(ppsfs::limits::TextSize / 4, 'x');
    for (int i = 0; i < 8; ++i) {
        publisher.write(name + std::to_string(i) + "::\n");
        publisher.write('-' + name + std::to_string(i) + "\n");
        EXPECT_NE(current.read(), "");
    }
    publisher.write("last:n:1\n");
    EXPECT_EQ(current.read(), "@o\nlast:n:1\n");
    EXPECT_EQ(reader.read(), "-@o\n");
    EXPECT_TRUE(reader.handle().isReadable());
    EXPECT_EQ(reader.read(), "@o\nfirst:n:1\nlast:n:1\n");
    EXPECT_FALSE(reader.handle().isReadable());
}

TEST_F(Publishing, RemovalIsReadOnce)
{
    OpenObject publisher(store, "o");
    OpenObject reader(store, "o?wait");
    publisher.write("a:n:1\n");
    reader.takeWakes();
    EXPECT_TRUE(reader.handle().waits());
    ASSERT_EQ(store.removeObject(*store.root(), "o"), 0);
    EXPECT_EQ(reader.takeWakes(), 1);
    EXPECT_FALSE(reader.handle().waits());
    EXPECT_EQ(reader.read(), "-@o\n");
    EXPECT_EQ(reader.read(), "");
    EXPECT_EQ(reader.write("a:n:1\n"), ENOENT);
    EXPECT_TRUE(reader.handle().isWritable());
    EXPECT_EQ(content(), "");
}

} // namespace
} // namespace tamotest

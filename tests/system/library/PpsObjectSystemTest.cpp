// SPDX-License-Identifier: Apache-2.0
#include <tamo/PpsObject.h>

#include "PrivatePps.h"
#include "ProcessorTime.h"

#include <QSignalSpy>
#include <QTest>

#include <gmock/gmock.h>

#include <atomic>
#include <cerrno>
#include <fstream>
#include <string>
#include <thread>
#include <unistd.h>

using namespace std::chrono_literals;
using tamo::PpsObject;
using tamotest::publish;

namespace {

const QString path = QStringLiteral("/pps/test");

/** Whether a thread of this process sleeps in the kernel. */
bool sleeps(pid_t thread)
{
    std::ifstream stat("/proc/self/task/" + std::to_string(thread) + "/stat");
    const std::string line((std::istreambuf_iterator<char>(stat)), {});
    const std::size_t state = line.rfind(')') + 2;
    return state < line.size() && line[state] == 'S';
}

/** Reads once, in a thread of its own. */
class BackgroundRead
{
public:
    explicit BackgroundRead(PpsObject& object)
        : m_thread([this, &object] {
            m_id = gettid();
            m_succeeded = object.read(m_data);
            m_done = true;
        })
    {
    }
    ~BackgroundRead() { m_thread.join(); }

    bool isWaiting() const { return m_id != 0 && !m_done && sleeps(m_id); }
    bool isDone() const { return m_done; }
    bool succeeded() const { return m_succeeded; }
    QByteArray data() const { return m_data; }

private:
    std::atomic<pid_t> m_id{0};
    std::atomic<bool> m_done{false};
    bool m_succeeded = false;
    QByteArray m_data;
    std::thread m_thread;
};

class PpsObjectSystemTest : public testing::Test
{
protected:
    tamotest::PpsFilesystem filesystem;
    QByteArray data;
};

TEST_F(PpsObjectSystemTest, FirstReadReturnsTheWholeObject)
{
    publish("test", "a:n:1\nb::x\n");
    PpsObject object(path);
    ASSERT_TRUE(object.open(PpsObject::Subscribe));
    EXPECT_TRUE(object.read(data));
    EXPECT_EQ(data, "@test\na:n:1\nb::x\n");
}

TEST_F(PpsObjectSystemTest, NothingNewFailsAtOnceInBlockingMode)
{
    publish("test", "a:n:1\n");
    PpsObject object(path);
    ASSERT_TRUE(object.open(PpsObject::Subscribe));
    ASSERT_TRUE(object.isBlocking());
    ASSERT_TRUE(object.read(data));
    EXPECT_FALSE(object.read(data));
    EXPECT_EQ(object.error(), EAGAIN);
    EXPECT_TRUE(data.isEmpty());
}

TEST_F(PpsObjectSystemTest, NothingNewIsWaitedForWhereThePathSaysSo)
{
    publish("test", "a:n:1\n");
    PpsObject object(path + QStringLiteral("?wait"));
    ASSERT_TRUE(object.open(PpsObject::Subscribe));
    ASSERT_TRUE(object.read(data));
    BackgroundRead read(object);
    const bool waited = QTest::qWaitFor([&read] { return read.isWaiting(); });
    publish("test", "a:n:2\n");
    EXPECT_TRUE(waited);
    ASSERT_TRUE(QTest::qWaitFor([&read] { return read.isDone(); }));
    EXPECT_TRUE(read.succeeded());
    EXPECT_EQ(read.data(), "@test\na:n:2\n");
}

TEST_F(PpsObjectSystemTest, NothingNewFailsAtOnceInNonBlockingModeOnAWaitingPath)
{
    publish("test", "a:n:1\n");
    PpsObject object(path + QStringLiteral("?wait"));
    ASSERT_TRUE(object.open(PpsObject::Subscribe));
    ASSERT_TRUE(object.setBlocking(false));
    ASSERT_TRUE(object.read(data));
    EXPECT_FALSE(object.read(data));
    EXPECT_EQ(object.error(), EAGAIN);
}

TEST_F(PpsObjectSystemTest, CreationMakesANewObjectAndRefusesAnExistingOne)
{
    PpsObject object(path);
    ASSERT_TRUE(object.open(PpsObject::Publish | PpsObject::Create));
    PpsObject second(path);
    EXPECT_FALSE(second.open(PpsObject::Publish | PpsObject::Create));
    EXPECT_EQ(second.error(), EEXIST);
}

TEST_F(PpsObjectSystemTest, TruncationReplacesTheObjectWithTheFirstWrite)
{
    publish("test", "a:n:1\nb:n:1\n");
    PpsObject subscriber(path);
    ASSERT_TRUE(subscriber.open(PpsObject::Subscribe));
    PpsObject publisher(path);
    ASSERT_TRUE(publisher.open(PpsObject::Publish | PpsObject::Truncate));
    EXPECT_TRUE(subscriber.read(data));
    EXPECT_EQ(data, "@test\na:n:1\nb:n:1\n");
    EXPECT_EQ(publisher.write("c:n:1\n"), 6);
    EXPECT_TRUE(subscriber.read(data));
    EXPECT_EQ(data, "@test\nc:n:1\n");
}

TEST_F(PpsObjectSystemTest, MalformedWriteFails)
{
    publish("test", "a:n:1\n");
    PpsObject object(path);
    ASSERT_TRUE(object.open(PpsObject::Publish));
    EXPECT_EQ(object.write("a:n:one\n"), -1);
    EXPECT_EQ(object.error(), EINVAL);
}

TEST_F(PpsObjectSystemTest, LargestMessageIsWrittenAndReadWhole)
{
    constexpr int largest = 1'044'480;
    publish("test", "a:n:1\n");
    QByteArray text("@test\na::");
    text += QByteArray(largest - text.size() - 1, 'x') + '\n';
    PpsObject publisher(path);
    ASSERT_TRUE(publisher.open(PpsObject::Publish));
    PpsObject subscriber(path);
    ASSERT_TRUE(subscriber.open(PpsObject::Subscribe));
    EXPECT_EQ(publisher.write(text), largest);
    EXPECT_TRUE(subscriber.read(data));
    EXPECT_EQ(data, text);
    text.insert(text.size() - 1, 'x');
    EXPECT_EQ(publisher.write(text), -1);
    EXPECT_EQ(publisher.error(), EFBIG);
}

TEST_F(PpsObjectSystemTest, EachPublicationIsAnnounced)
{
    publish("test", "a:n:0\n");
    PpsObject object(path);
    ASSERT_TRUE(object.open(PpsObject::Subscribe));
    QByteArrayList messages;
    QObject::connect(&object, &PpsObject::readyRead, [&] {
        if (object.read(data))
            messages.append(data);
    });
    for (int i = 1; i <= 3; ++i) {
        ASSERT_TRUE(QTest::qWaitFor([&] { return messages.size() == i; }));
        publish("test", "a:n:" + std::to_string(i) + "\n");
    }
    ASSERT_TRUE(QTest::qWaitFor([&] { return messages.size() == 4; }));
    EXPECT_THAT(messages, testing::ElementsAre("@test\na:n:0\n", "@test\na:n:1\n", "@test\na:n:2\n",
                                               "@test\na:n:3\n"));
}

TEST_F(PpsObjectSystemTest, RemovedObjectSaysSoOnce)
{
    publish("test", "a:n:1\n");
    PpsObject object(path);
    ASSERT_TRUE(object.open(PpsObject::Subscribe));
    ASSERT_TRUE(object.read(data));
    QSignalSpy readyRead(&object, &PpsObject::readyRead);
    ASSERT_TRUE(object.remove());
    ASSERT_TRUE(readyRead.wait());
    EXPECT_TRUE(object.read(data));
    EXPECT_EQ(data, "-@test\n");
    EXPECT_FALSE(object.read(data));
    EXPECT_EQ(object.error(), EAGAIN);
}

enum class Receiver { Reads, DoesNotRead };

struct DeadFilesystem
{
    PpsObject::OpenMode mode;
    Receiver receiver;
};

class AfterTheFilesystemsDeath : public PpsObjectSystemTest,
                                 public testing::WithParamInterface<DeadFilesystem>
{
};

TEST_P(AfterTheFilesystemsDeath, TheApplicationComesToRest)
{
    publish("test", "a:n:1\n");
    PpsObject object(path);
    ASSERT_TRUE(object.open(GetParam().mode));
    object.read(data); // What was published, where the mode lets it be read.
    int emissions = 0;
    QObject::connect(&object, &PpsObject::readyRead, [&] {
        ++emissions;
        if (GetParam().receiver == Receiver::Reads) {
            EXPECT_FALSE(object.read(data));
        }
    });
    filesystem.kill();
    ASSERT_TRUE(QTest::qWaitFor([&emissions] { return emissions > 0; }));

    EXPECT_LT(tamotest::processorTimeOfEventLoop(500ms), 50ms);
    EXPECT_LE(emissions, 3);
    if (GetParam().mode.testFlag(PpsObject::Subscribe)) {
        EXPECT_FALSE(object.read(data));
        EXPECT_EQ(object.error(), ENOTCONN);
    }
    if (GetParam().mode.testFlag(PpsObject::Publish)) {
        EXPECT_EQ(object.write("a:n:2\n"), -1);
        EXPECT_EQ(object.error(), ENOTCONN);
    }
}

INSTANTIATE_TEST_SUITE_P(
    Descriptor, AfterTheFilesystemsDeath,
    testing::Values(DeadFilesystem{PpsObject::Subscribe, Receiver::Reads},
                    DeadFilesystem{PpsObject::Subscribe, Receiver::DoesNotRead},
                    DeadFilesystem{PpsObject::Publish, Receiver::DoesNotRead},
                    DeadFilesystem{PpsObject::Publish | PpsObject::Subscribe, Receiver::Reads}));

TEST_F(PpsObjectSystemTest, ReceiverThatHasNotReadYetIsToldAgainLater)
{
    publish("test", "a:n:1\n");
    PpsObject object(path);
    ASSERT_TRUE(object.open(PpsObject::Subscribe));
    QSignalSpy readyRead(&object, &PpsObject::readyRead);
    ASSERT_TRUE(QTest::qWaitFor([&readyRead] { return readyRead.count() > 20; }));
    ASSERT_TRUE(object.read(data));
    readyRead.clear();
    publish("test", "a:n:2\n");
    EXPECT_TRUE(readyRead.wait());
    EXPECT_TRUE(object.read(data));
    EXPECT_EQ(data, "@test\na:n:2\n");
}

} // namespace

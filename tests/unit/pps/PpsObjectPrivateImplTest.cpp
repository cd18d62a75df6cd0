// SPDX-License-Identifier: Apache-2.0
// The system layer on descriptors that every machine has: a FIFO for what becomes readable, a file
// for what is opened and removed.
#include <tamo/PpsObject.h>

#include <QFile>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>

#include <gmock/gmock.h>

#include <cerrno>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

using tamo::PpsObject;

namespace {

class PpsObjectPrivateImplTest : public testing::Test
{
protected:
    PpsObjectPrivateImplTest()
    {
        const QByteArray name = fifo.toUtf8();
        EXPECT_EQ(mkfifo(name.constData(), 0600), 0);
        writer = open(name.constData(), O_RDWR | O_CLOEXEC);
        EXPECT_NE(writer, -1);
    }
    ~PpsObjectPrivateImplTest() override { closeWriter(); }

    void publish(const QByteArray& text)
    {
        EXPECT_EQ(::write(writer, text.constData(), static_cast<size_t>(text.size())), text.size());
    }

    void closeWriter()
    {
        if (writer != -1)
            ::close(writer);
        writer = -1;
    }

    QTemporaryDir directory;
    QString fifo = directory.filePath(QStringLiteral("fifo"));
    QString file = directory.filePath(QStringLiteral("file"));
    int writer = -1;
};

TEST_F(PpsObjectPrivateImplTest, CreatesWritesReadsAndRemovesAFile)
{
    PpsObject created(file);
    ASSERT_TRUE(created.open(PpsObject::Publish | PpsObject::Create));
    EXPECT_EQ(created.write("a::b\n"), 5);
    PpsObject reader(file);
    ASSERT_TRUE(reader.open(PpsObject::Subscribe));
    QByteArray data;
    EXPECT_TRUE(reader.read(data));
    EXPECT_EQ(data, "a::b\n");
    EXPECT_FALSE(reader.read(data));
    EXPECT_EQ(reader.error(), EAGAIN);
    EXPECT_TRUE(reader.remove());
    EXPECT_FALSE(QFile::exists(file));
    EXPECT_FALSE(reader.remove());
    EXPECT_EQ(reader.error(), ENOENT);
}

TEST_F(PpsObjectPrivateImplTest, CreationOfWhatExistsIsRefused)
{
    PpsObject object(fifo);
    EXPECT_FALSE(object.open(PpsObject::Publish | PpsObject::Create));
    EXPECT_EQ(object.error(), EEXIST);
    EXPECT_FALSE(object.isOpen());
}

TEST_F(PpsObjectPrivateImplTest, OpenDescriptorBlocksUntilToldOtherwise)
{
    PpsObject object(fifo);
    ASSERT_TRUE(object.open(PpsObject::Publish | PpsObject::Subscribe));
    EXPECT_TRUE(object.isBlocking());
    EXPECT_TRUE(object.setBlocking(false));
    EXPECT_FALSE(object.isBlocking());
    QByteArray data;
    EXPECT_FALSE(object.read(data));
    EXPECT_EQ(object.error(), EAGAIN);
    EXPECT_TRUE(object.setBlocking(true));
    EXPECT_TRUE(object.isBlocking());
}

TEST_F(PpsObjectPrivateImplTest, ReadyReadIsEmittedWhateverTheBlockingMode)
{
    for (const bool blocking : {true, false}) {
        PpsObject object(fifo);
        ASSERT_TRUE(object.open(PpsObject::Publish | PpsObject::Subscribe));
        ASSERT_TRUE(object.setBlocking(blocking));
        QSignalSpy readyRead(&object, &PpsObject::readyRead);
        publish("x");
        ASSERT_TRUE(readyRead.wait());
        QByteArray data;
        EXPECT_TRUE(object.read(data));
        EXPECT_EQ(data, "x");
    }
}

TEST_F(PpsObjectPrivateImplTest, ReadyReadIsEmittedOnlyWhileItIsEnabled)
{
    PpsObject object(fifo);
    object.setReadyReadEnabled(false);
    ASSERT_TRUE(object.open(PpsObject::Publish | PpsObject::Subscribe));
    PpsObject witness(fifo);
    ASSERT_TRUE(witness.open(PpsObject::Publish | PpsObject::Subscribe));
    QSignalSpy readyRead(&object, &PpsObject::readyRead);
    QSignalSpy witnessed(&witness, &PpsObject::readyRead);
    publish("x");
    ASSERT_TRUE(QTest::qWaitFor([&witnessed] { return witnessed.count() > 3; }));
    EXPECT_EQ(readyRead.count(), 0);
    object.setReadyReadEnabled(true);
    EXPECT_TRUE(readyRead.wait());
}

TEST_F(PpsObjectPrivateImplTest, HealthyDescriptorGoesOnFiringForAReceiverThatDoesNotRead)
{
    PpsObject object(fifo);
    ASSERT_TRUE(object.open(PpsObject::Publish | PpsObject::Subscribe));
    QSignalSpy readyRead(&object, &PpsObject::readyRead);
    publish("x");
    EXPECT_TRUE(QTest::qWaitFor([&readyRead] { return readyRead.count() > 20; }));
}

// The other end of a FIFO that has gone is a hang-up that never goes away, as is the error of a
// filesystem that has ended.
TEST_F(PpsObjectPrivateImplTest, DeadDescriptorComesToRest)
{
    PpsObject object(fifo);
    ASSERT_TRUE(object.open(PpsObject::Subscribe));
    int emissions = 0;
    int emissionsSinceTimer = 0;
    QObject::connect(&object, &PpsObject::readyRead, [&] {
        ++emissions;
        ++emissionsSinceTimer;
    });
    closeWriter();
    // At rest: several turns of the event loop, in which nothing was emitted.
    int quietTurns = 0;
    ASSERT_TRUE(QTest::qWaitFor([&] {
        quietTurns = emissions > 0 && emissionsSinceTimer == 0 ? quietTurns + 1 : 0;
        emissionsSinceTimer = 0;
        return quietTurns >= 10;
    }));
    EXPECT_LE(emissions, 3);

    object.setReadyReadEnabled(true);
    const int before = emissions;
    EXPECT_TRUE(QTest::qWaitFor([&] { return emissions > before; }));
}

TEST_F(PpsObjectPrivateImplTest, ReopenedObjectIsWatchedAgain)
{
    PpsObject object(fifo);
    ASSERT_TRUE(object.open(PpsObject::Publish | PpsObject::Subscribe));
    ASSERT_TRUE(object.close());
    ASSERT_TRUE(object.open(PpsObject::Publish | PpsObject::Subscribe));
    QSignalSpy readyRead(&object, &PpsObject::readyRead);
    publish("x");
    EXPECT_TRUE(readyRead.wait());
}

TEST_F(PpsObjectPrivateImplTest, ReceiverMayCloseTheObject)
{
    PpsObject object(fifo);
    ASSERT_TRUE(object.open(PpsObject::Publish | PpsObject::Subscribe));
    QObject::connect(&object, &PpsObject::readyRead, [&object] { object.close(); });
    publish("x");
    EXPECT_TRUE(QTest::qWaitFor([&object] { return !object.isOpen(); }));
}

TEST_F(PpsObjectPrivateImplTest, ReceiverMayDeleteTheObject)
{
    QPointer<PpsObject> object = new PpsObject(fifo);
    ASSERT_TRUE(object->open(PpsObject::Publish | PpsObject::Subscribe));
    QObject::connect(object, &PpsObject::readyRead, [&object] { delete object; });
    publish("x");
    EXPECT_TRUE(QTest::qWaitFor([&object] { return object.isNull(); }));
}

TEST_F(PpsObjectPrivateImplTest, DestructionClosesTheDescriptor)
{
    const QDir descriptors(QStringLiteral("/proc/self/fd"));
    // The listing holds the directory's own descriptor both times.
    const auto count = [&descriptors] {
        return QDir(descriptors).entryList(QDir::System | QDir::AllEntries).size();
    };
    const auto before = count();
    {
        PpsObject object(fifo);
        ASSERT_TRUE(object.open(PpsObject::Publish));
        EXPECT_EQ(count(), before + 1);
    }
    EXPECT_EQ(count(), before);
}

} // namespace

// SPDX-License-Identifier: Apache-2.0
#include <tamo/PpsAccessor.h>

#include "SubstituteSystem.h"

#include <tamo/Exception.h>

#include <QDir>
#include <QPointer>
#include <QSignalSpy>
#include <QTemporaryDir>

#include <cerrno>
#include <stdexcept>
#include <sys/stat.h>

using tamo::PpsAccessor;
using tamo::PpsObject;
using tamotest::Fail;
using tamotest::Message;
using tamotest::SubstitutedObject;
using testing::_;
using testing::Invoke;
using testing::Return;

namespace {

constexpr int descriptor = 7;

class PpsAccessorTest : public testing::Test
{
protected:
    PpsAccessorTest()
        : object(std::make_unique<SubstitutedObject>())
        , system(object->system)
        , accessor(std::make_unique<PpsAccessor>(object.get()))
        , received(accessor.get(), &PpsAccessor::received)
        , unparsable(accessor.get(), &PpsAccessor::unparsableDataReceived)
    {
        object->openAs(descriptor);
    }

    void holds(const QByteArray& text)
    {
        EXPECT_CALL(system, read).WillOnce(Message(&system, text));
    }

    std::unique_ptr<SubstitutedObject> object;
    tamotest::SubstituteSystem& system;
    std::unique_ptr<PpsAccessor> accessor;
    QSignalSpy received;
    QSignalSpy unparsable;
    const QVariantMap status = {{"@status", QVariantMap{{"a", 5.0}}}};
};

TEST_F(PpsAccessorTest, LeavesTheCallersObjectToTheCaller)
{
    SubstitutedObject closed;
    EXPECT_CALL(closed.system, open).Times(0);
    const QPointer<PpsObject> watched = &closed;
    {
        const PpsAccessor over(&closed);
        EXPECT_EQ(closed.parent(), nullptr);
    }
    EXPECT_FALSE(watched.isNull());
}

TEST_F(PpsAccessorTest, ReadsOneMessageAsAMap)
{
    holds("@status\na:n:5\n");
    EXPECT_EQ(accessor->read(), status);
}

TEST_F(PpsAccessorTest, ReadThrowsWhereThereIsNothingToRead)
{
    EXPECT_CALL(system, read).WillOnce(Return(0));
    EXPECT_THROW(accessor->read(), tamo::Exception);
}

TEST_F(PpsAccessorTest, ReadThrowsWhereTheObjectCannotBeRead)
{
    EXPECT_CALL(system, read).WillOnce(Fail(&system, EIO));
    EXPECT_THROW(accessor->read(), tamo::Exception);
    object->close();
    EXPECT_THROW(accessor->read(), tamo::Exception);
}

TEST_F(PpsAccessorTest, ReadThrowsForMalformedText)
{
    holds("@status\na:n:five\n");
    EXPECT_THROW(accessor->read(), tamo::Exception);
}

TEST_F(PpsAccessorTest, SendWritesTheEncodedMapInOneWrite)
{
    QByteArray written;
    EXPECT_CALL(system, write(descriptor, _, _))
        .WillOnce(Invoke([&written](int, const void* bytes, size_t size) {
            written = QByteArray(static_cast<const char*>(bytes), static_cast<int>(size));
            return static_cast<ssize_t>(size);
        }));
    EXPECT_TRUE(accessor->send({{"a", 5}, {"b", "text"}}));
    EXPECT_EQ(written, "a:n:5\nb::text\n");
}

TEST_F(PpsAccessorTest, SendTellsOfAShortWrite)
{
    EXPECT_CALL(system, write).WillOnce(Return(3));
    EXPECT_FALSE(accessor->send({{"a", 5}}));
}

TEST_F(PpsAccessorTest, SendTellsOfAFailedWrite)
{
    EXPECT_CALL(system, write).WillOnce(Fail(&system, EPIPE));
    EXPECT_FALSE(accessor->send({{"a", 5}}));
    EXPECT_EQ(object->error(), EPIPE);
}

TEST_F(PpsAccessorTest, SendThrowsForWhatCannotBeEncodedAndWritesNothing)
{
    EXPECT_CALL(system, write).Times(0);
    EXPECT_THROW(accessor->send({{"a", qlonglong(5)}}), tamo::Exception);
}

TEST_F(PpsAccessorTest, SendIsASlot)
{
    EXPECT_CALL(system, write).WillOnce(Return(6));
    bool sent = false;
    EXPECT_TRUE(QMetaObject::invokeMethod(accessor.get(), "send", Q_RETURN_ARG(bool, sent),
                                          Q_ARG(QVariantMap, (QVariantMap{{"a", 5}}))));
    EXPECT_TRUE(sent);
}

TEST_F(PpsAccessorTest, PublicationIsReceivedAsAMap)
{
    holds("@status\na:n:5\n");
    Q_EMIT object->readyRead();
    ASSERT_EQ(received.count(), 1);
    EXPECT_EQ(received.at(0).at(0).toMap(), status);
    EXPECT_EQ(unparsable.count(), 0);
}

TEST_F(PpsAccessorTest, MalformedPublicationIsReportedWithTheBytesThatWereRead)
{
    const QByteArray bytes("@status\na:n:\xff\0five\n", 18);
    holds(bytes);
    Q_EMIT object->readyRead();
    ASSERT_EQ(unparsable.count(), 1);
    EXPECT_EQ(unparsable.at(0).at(0).toByteArray(), bytes);
    EXPECT_EQ(received.count(), 0);
}

TEST_F(PpsAccessorTest, FailedReadAfterANotificationIsSilent)
{
    EXPECT_CALL(system, read).WillOnce(Return(0)).WillOnce(Fail(&system, ENOTCONN));
    EXPECT_NO_THROW(Q_EMIT object->readyRead());
    EXPECT_NO_THROW(Q_EMIT object->readyRead());
    EXPECT_EQ(received.count(), 0);
    EXPECT_EQ(unparsable.count(), 0);
}

TEST_F(PpsAccessorTest, WhatAReceiverThrowsPassesThrough)
{
    holds("@status\na:n:5\n");
    QObject::connect(accessor.get(), &PpsAccessor::received, [] { throw std::runtime_error(""); });
    EXPECT_THROW(Q_EMIT object->readyRead(), std::runtime_error);
}

TEST_F(PpsAccessorTest, LibrarysExceptionFromAReceiverIsNotTakenForMalformedText)
{
    holds("@status\na:n:5\n");
    QObject::connect(accessor.get(), &PpsAccessor::received, [] { throw tamo::Exception(); });
    EXPECT_THROW(Q_EMIT object->readyRead(), tamo::Exception);
    EXPECT_EQ(unparsable.count(), 0);
}

TEST_F(PpsAccessorTest, ReceiverMayDeleteTheAccessor)
{
    holds("@status\na:n:5\n");
    QVariantMap map;
    QObject::connect(accessor.get(), &PpsAccessor::received, [&](const QVariantMap& ppsData) {
        accessor.reset();
        map = ppsData;
    });
    Q_EMIT object->readyRead();
    EXPECT_EQ(accessor, nullptr);
    EXPECT_EQ(map, status);
}

TEST_F(PpsAccessorTest, ReceiverOfMalformedTextMayDeleteTheAccessorAndTheObject)
{
    holds("malformed");
    QByteArray bytes;
    QObject::connect(accessor.get(), &PpsAccessor::unparsableDataReceived,
                     [&](const QByteArray& rawData) {
                         accessor.reset();
                         object.reset();
                         bytes = rawData;
                     });
    Q_EMIT object->readyRead();
    EXPECT_EQ(object, nullptr);
    EXPECT_EQ(bytes, "malformed");
}

TEST_F(PpsAccessorTest, WithoutItsObjectItReadsAndSendsNothing)
{
    object.reset();
    EXPECT_THROW(accessor->read(), tamo::Exception);
    EXPECT_FALSE(accessor->send({{"a", 5}}));
    EXPECT_THROW(accessor->send({{"a", qlonglong(5)}}), tamo::Exception);
}

TEST_F(PpsAccessorTest, OverNoObjectItReadsAndSendsNothing)
{
    PpsAccessor over(static_cast<PpsObject*>(nullptr));
    EXPECT_THROW(over.read(), tamo::Exception);
    EXPECT_FALSE(over.send({{"a", 5}}));
}

TEST(PpsAccessorOfAPath, ThrowsWhereTheObjectCannotBeOpened)
{
    const QTemporaryDir directory;
    const auto entries = [] { return QDir(QStringLiteral("/proc/self/fd")).count(); };
    const auto before = entries();
    EXPECT_THROW(PpsAccessor(directory.filePath(QStringLiteral("absent"))), tamo::Exception);
    EXPECT_EQ(entries(), before);
}

TEST(PpsAccessorOfAPath, ReadsAndWritesItsOwnObject)
{
    const QTemporaryDir directory;
    const QString fifo = directory.filePath(QStringLiteral("fifo"));
    ASSERT_EQ(mkfifo(fifo.toUtf8().constData(), 0600), 0);
    PpsAccessor accessor(fifo);
    QSignalSpy received(&accessor, &PpsAccessor::received);

    ASSERT_TRUE(accessor.send({{"a", 5}}));
    EXPECT_EQ(accessor.read(), (QVariantMap{{"a", 5.0}}));

    ASSERT_TRUE(accessor.send({{"a", 6}}));
    ASSERT_TRUE(received.wait());
    EXPECT_EQ(received.at(0).at(0).toMap(), (QVariantMap{{"a", 6.0}}));
}

} // namespace

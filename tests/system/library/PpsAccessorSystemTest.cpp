// SPDX-License-Identifier: Apache-2.0
#include <tamo/Exception.h>
#include <tamo/PpsAccessor.h>
#include <tamo/PpsObject.h>

#include "PrivatePps.h"
#include "WorkerThread.h"

#include <QSignalSpy>

#include <gtest/gtest.h>

#include <cerrno>
#include <future>
#include <memory>

using tamo::PpsAccessor;
using tamo::PpsObject;
using tamotest::publish;

namespace {

const QString path = QStringLiteral("/pps/test");

class PpsAccessorSystemTest : public testing::Test
{
protected:
    tamotest::PpsFilesystem filesystem;
};

TEST_F(PpsAccessorSystemTest, ObjectThatDoesNotExistThrows)
{
    EXPECT_THROW(PpsAccessor{path}, tamo::Exception);
}

TEST_F(PpsAccessorSystemTest, ReadsTheObjectAndThrowsWithNothingNew)
{
    publish("test", "a:n:1\n");
    PpsAccessor accessor(path);
    EXPECT_EQ(accessor.read(), (QVariantMap{{"@test", QVariantMap{{"a", 1.0}}}}));
    EXPECT_THROW(accessor.read(), tamo::Exception);
}

TEST_F(PpsAccessorSystemTest, WhatOneSendsTheOtherReceives)
{
    publish("test", "a:n:1\n");
    PpsAccessor sender(path);
    PpsAccessor receiver(path);
    receiver.read();
    QSignalSpy received(&receiver, &PpsAccessor::received);
    const QVariantMap attributes = {
        {"a", 5.0}, {"text", QString::fromUtf8("\xc3\xa9\n")}, {"list", QVariantList{1.0, "x"}}};
    ASSERT_TRUE(sender.send(attributes));
    ASSERT_TRUE(received.wait());
    EXPECT_EQ(received.at(0).at(0).toMap(), (QVariantMap{{"@test", attributes}}));
}

TEST_F(PpsAccessorSystemTest, FirstUpdateAfterTheOpeningIsNotLost)
{
    publish("test", "a:n:1\n");
    PpsAccessor accessor(path);
    publish("test", "a:n:2\n");
    QSignalSpy received(&accessor, &PpsAccessor::received);
    ASSERT_TRUE(received.wait());
    EXPECT_EQ(received.at(0).at(0).toMap(), (QVariantMap{{"@test", QVariantMap{{"a", 2.0}}}}));
}

TEST_F(PpsAccessorSystemTest, RemovedObjectIsReceivedAsNull)
{
    publish("test", "a:n:1\n");
    PpsObject object(path);
    ASSERT_TRUE(object.open(PpsObject::Subscribe));
    PpsAccessor accessor(&object);
    accessor.read();
    QSignalSpy received(&accessor, &PpsAccessor::received);
    ASSERT_TRUE(object.remove());
    ASSERT_TRUE(received.wait());
    EXPECT_EQ(received.at(0).at(0).toMap(), (QVariantMap{{"@test", QVariant()}}));
}

TEST_F(PpsAccessorSystemTest, ClientAndServerOfAMailboxTalkInMaps)
{
    publish("control", "a:n:1\n");
    PpsObject serverObject(QStringLiteral("/pps/control?serve"));
    ASSERT_TRUE(serverObject.open(PpsObject::Publish | PpsObject::Subscribe));
    PpsAccessor server(&serverObject);
    QSignalSpy heard(&server, &PpsAccessor::received);
    PpsAccessor client(QStringLiteral("/pps/control"));
    QSignalSpy answered(&client, &PpsAccessor::received);

    const QVariantMap request = {{"msg", "ping"}, {"dat", QVariantMap{{"id", "7"}}}};
    ASSERT_TRUE(client.send(request));
    while (heard.isEmpty() || !heard.last().at(0).toMap().firstKey().startsWith('@'))
        ASSERT_TRUE(heard.wait());
    const QVariantMap message = heard.last().at(0).toMap();
    EXPECT_EQ(message.first().toMap(), request);

    const QByteArray answer =
        message.firstKey().toUtf8() + '\n' + PpsAccessor::encode({{"res", "pong"}});
    ASSERT_EQ(serverObject.write(answer), answer.size());
    ASSERT_TRUE(answered.wait());
    EXPECT_EQ(answered.at(0).at(0).toMap(),
              (QVariantMap{{"@control", QVariantMap{{"res", "pong"}}}}));
}

TEST_F(PpsAccessorSystemTest, MayBeMovedToAnotherThreadAndDeletedThere)
{
    publish("test", "a:n:1\n");
    auto accessor = std::make_unique<PpsAccessor>(path);
    accessor->read();
    tamotest::WorkerThread worker;
    accessor->moveToThread(&worker);
    std::promise<QVariantMap> message;
    std::promise<QThread*> thread;
    QObject::connect(accessor.get(), &PpsAccessor::received, accessor.get(),
                     [&](const QVariantMap& pps) {
                         message.set_value(pps);
                         thread.set_value(QThread::currentThread());
                     });
    publish("test", "a:n:2\n");
    EXPECT_EQ(tamotest::valueOf(message), (QVariantMap{{"@test", QVariantMap{{"a", 2.0}}}}));
    EXPECT_EQ(tamotest::valueOf(thread), &worker);
    worker.run([&accessor] {
        EXPECT_TRUE(accessor->send({{"a", 3}}));
        accessor.reset();
    });
}

TEST_F(PpsAccessorSystemTest, FollowsAnObjectThatIsMovedWithIt)
{
    publish("test", "a:n:1\n");
    PpsObject object(path);
    ASSERT_TRUE(object.open(PpsObject::Subscribe));
    PpsAccessor accessor(&object);
    std::promise<QThread*> thread;
    QObject::connect(&accessor, &PpsAccessor::received, &accessor,
                     [&thread] { thread.set_value(QThread::currentThread()); });
    tamotest::WorkerThread worker;
    accessor.moveToThread(&worker);
    object.moveToThread(&worker);
    EXPECT_EQ(tamotest::valueOf(thread), &worker);
    worker.run([&object] { object.close(); });
    worker.end();
}

TEST_F(PpsAccessorSystemTest, RequestWithoutAServerIsNotSent)
{
    publish("control", "a:n:1\n");
    {
        PpsObject server(QStringLiteral("/pps/control?serve"));
        ASSERT_TRUE(server.open(PpsObject::Subscribe));
    }
    PpsObject object(QStringLiteral("/pps/control"));
    ASSERT_TRUE(object.open(PpsObject::Publish | PpsObject::Subscribe));
    PpsAccessor client(&object);
    EXPECT_FALSE(client.send({{"msg", "ping"}}));
    EXPECT_EQ(object.error(), EPIPE);
}

} // namespace

// SPDX-License-Identifier: Apache-2.0
#include "core/ConnectionSubscription.h"

#include "CoreTest.h"
#include "Storm.h"

#include "core/StandardZelEventHandler.h"
#include "core/SubscriptionThread.h"

#include <tamo/Exception.h>

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QObject>
#include <QTest>

#include <gmock/gmock.h>

#include <optional>

namespace {

using tamotest::eventually;
using tamotest::Storm;

/** An object whose signals come from a service's events, as those of the library do. */
class Source : public QObject, public tamo::StandardZelEventHandler
{
    Q_OBJECT

public:
    explicit Source(tamomock::ZelEventProvider& provider, int flags = 0)
        : StandardZelEventHandler(&provider)
        , m_subscription(
              *this, staticMetaObject,
              [this](const QMetaMethod& signal) { return isSignalConnected(signal); }, *this, flags)
    {
    }
    ~Source() override { m_subscription.end(); }

    void handleZelEvent(int code, zel_event_t*) override
    {
        if (whenCalled)
            whenCalled();
        Q_EMIT happened(code);
    }

    std::function<void()> whenCalled;

Q_SIGNALS:
    void happened(int code);
    void other();

protected:
    void connectNotify(const QMetaMethod& signal) override { m_subscription.connected(signal); }
    void disconnectNotify(const QMetaMethod&) override { m_subscription.disconnected(); }

private:
    tamo::ConnectionSubscription m_subscription;
};

class Receiver : public QObject
{
    Q_OBJECT

public:
    std::atomic<int> calls{0};

public Q_SLOTS:
    void take(int) { ++calls; }
};

class ConnectionSubscriptionTest : public tamotest::PlatformTest
{
protected:
    bool deliver()
    {
        return eventually([&] { return service.deliver(1); });
    }

    int stops() const { return journal.count("service.stopEvents"); }

    /** The subscription ends, and with it, being the only one, the dispatch thread. */
    bool endsSoon()
    {
        return eventually([&] { return core.channels().empty(); });
    }

    bool receives(Receiver& target)
    {
        const int before = target.calls;
        return deliver() && QTest::qWaitFor([&] { return target.calls > before; }, 30'000);
    }

    tamotest::SubstituteProvider service{journal, core, "service", 51};
    std::optional<Source> source{std::in_place, service};
    Receiver receiver;
};

TEST_F(ConnectionSubscriptionTest, TheFirstConnectionSubscribesAndTheLastDisconnectionEndsIt)
{
    QObject::connect(&*source, &Source::happened, &receiver, &Receiver::take);
    EXPECT_TRUE(receives(receiver));
    QObject::connect(&*source, &Source::other, &receiver, [] {});
    QObject::disconnect(&*source, &Source::happened, nullptr, nullptr);
    ASSERT_TRUE(tamo::SubscriptionThread::instance().settle(tamotest::Limit));
    EXPECT_EQ(stops(), 0);
    QObject::disconnect(&*source, &Source::other, nullptr, nullptr);
    EXPECT_TRUE(endsSoon());
    EXPECT_EQ(stops(), 1);
    EXPECT_EQ(journal.count("service.requestEvents"), 1);
}

TEST_F(ConnectionSubscriptionTest, TheFlagsAreTheObjects)
{
    source.reset();
    source.emplace(service, 12);
    QObject::connect(&*source, &Source::other, &receiver, [] {});
    source.reset();
    EXPECT_EQ(journal.calls("service.requestEvents").at(0).arguments, "12");
    EXPECT_EQ(journal.calls("service.stopEvents").at(0).arguments, "12");
}

TEST_F(ConnectionSubscriptionTest, TheDeletionOfTheReceiverEndsIt)
{
    auto deleted = std::make_unique<Receiver>();
    QObject::connect(&*source, &Source::happened, deleted.get(), &Receiver::take);
    QObject::connect(&*source, &Source::other, deleted.get(), [] {});
    deleted.reset();
    EXPECT_TRUE(endsSoon());
}

TEST_F(ConnectionSubscriptionTest, DisconnectingAReceiverWholesaleEndsIt)
{
    QObject::connect(&*source, &Source::happened, &receiver, &Receiver::take);
    QObject::connect(&*source, &Source::happened, &receiver, &Receiver::take);
    QObject::connect(&*source, SIGNAL(other()), &receiver, SLOT(deleteLater()));
    QObject::disconnect(&*source, nullptr, &receiver, nullptr);
    EXPECT_TRUE(endsSoon());
}

TEST_F(ConnectionSubscriptionTest, DuplicateConnectionsAreGoneWithOneDisconnection)
{
    QObject::connect(&*source, &Source::happened, &receiver, &Receiver::take);
    QObject::connect(&*source, &Source::happened, &receiver, &Receiver::take);
    ASSERT_TRUE(deliver());
    EXPECT_TRUE(QTest::qWaitFor([&] { return receiver.calls == 2; }, 30'000));
    QObject::disconnect(&*source, &Source::happened, &receiver, &Receiver::take);
    EXPECT_TRUE(endsSoon());
}

TEST_F(ConnectionSubscriptionTest, OneOfTwoReceiversKeepsIt)
{
    auto deleted = std::make_unique<Receiver>();
    QObject::connect(&*source, &Source::happened, deleted.get(), &Receiver::take);
    QObject::connect(&*source, &Source::happened, &receiver, &Receiver::take);
    deleted.reset();
    ASSERT_TRUE(tamo::SubscriptionThread::instance().settle(tamotest::Limit));
    EXPECT_TRUE(receives(receiver));
    EXPECT_EQ(stops(), 0);
    receiver.disconnect();
    QObject::disconnect(&*source, nullptr, &receiver, nullptr);
    EXPECT_TRUE(endsSoon());
}

TEST_F(ConnectionSubscriptionTest, AConnectionToDestroyedCountsToo)
{
    QObject::connect(&*source, &QObject::destroyed, &receiver, [] {});
    EXPECT_TRUE(deliver());
    QObject::disconnect(&*source, nullptr, &receiver, nullptr);
    EXPECT_TRUE(endsSoon());
}

TEST_F(ConnectionSubscriptionTest, ReconnectingAtOnceIsHeard)
{
    for (int i = 0; i < 200; ++i) {
        QObject::connect(&*source, &Source::happened, &receiver, &Receiver::take);
        ASSERT_TRUE(receives(receiver));
        QObject::disconnect(&*source, nullptr, &receiver, nullptr);
        receiver.calls = 0;
    }
    EXPECT_TRUE(endsSoon());
}

#if QT_VERSION >= QT_VERSION_CHECK(6, 0, 0)
TEST_F(ConnectionSubscriptionTest, ASingleShotConnectionEndsItOnTheDispatchThread)
{
    std::atomic<int> calls{0};
    QObject::connect(
        &*source, &Source::happened, &*source, [&] { ++calls; },
        static_cast<Qt::ConnectionType>(Qt::DirectConnection | Qt::SingleShotConnection));
    ASSERT_TRUE(deliver());
    EXPECT_TRUE(endsSoon());
    EXPECT_EQ(calls, 1);
}

TEST_F(ConnectionSubscriptionTest, AQueuedSingleShotConnectionEndsIt)
{
    QObject::connect(
        &*source, &Source::happened, &receiver, &Receiver::take,
        static_cast<Qt::ConnectionType>(Qt::QueuedConnection | Qt::SingleShotConnection));
    EXPECT_TRUE(receives(receiver));
    EXPECT_TRUE(endsSoon());
}
#endif

TEST_F(ConnectionSubscriptionTest, ASlotOnTheDispatchThreadDisconnectsItself)
{
    QMetaObject::Connection connection;
    std::atomic<int> calls{0};
    connection = QObject::connect(
        &*source, &Source::happened, &receiver,
        [&] {
            ++calls;
            QObject::disconnect(connection);
        },
        Qt::DirectConnection);
    ASSERT_TRUE(deliver());
    EXPECT_TRUE(endsSoon());
    EXPECT_EQ(calls, 1);
}

TEST_F(ConnectionSubscriptionTest, ASlotOnTheDispatchThreadConnectsAnotherReceiver)
{
    std::atomic<bool> isConnected{false};
    QObject::connect(
        &*source, &Source::happened, &*source,
        [&] {
            if (!isConnected.exchange(true))
                QObject::connect(&*source, &Source::happened, &receiver, &Receiver::take);
        },
        Qt::DirectConnection);
    ASSERT_TRUE(deliver());
    ASSERT_TRUE(eventually([&] { return isConnected.load(); }));
    EXPECT_TRUE(receives(receiver));
    QObject::disconnect(&*source, nullptr, nullptr, nullptr);
    EXPECT_TRUE(endsSoon());
}

TEST_F(ConnectionSubscriptionTest, ASlotOnTheDispatchThreadConnectsTheFirstOneOfAnotherObject)
{
    tamotest::SubstituteProvider otherService(journal, core, "otherService", 52);
    Source otherSource(otherService);
    std::atomic<bool> isConnected{false};
    QObject::connect(
        &*source, &Source::happened, &*source,
        [&] {
            if (!isConnected.exchange(true))
                QObject::connect(&otherSource, &Source::happened, &receiver, &Receiver::take);
        },
        Qt::DirectConnection);
    ASSERT_TRUE(deliver());
    ASSERT_TRUE(eventually([&] { return otherService.deliver(1); }));
    EXPECT_TRUE(QTest::qWaitFor([&] { return receiver.calls == 1; }, 30'000));
    QObject::disconnect(&*source, nullptr, nullptr, nullptr);
    QObject::disconnect(&otherSource, nullptr, nullptr, nullptr);
    EXPECT_TRUE(endsSoon());
}

TEST_F(ConnectionSubscriptionTest, ASlotOnTheDispatchThreadDeletesItsReceiver)
{
    auto* const deleted = new Receiver;
    QObject::connect(
        &*source, &Source::happened, deleted, [deleted] { delete deleted; }, Qt::DirectConnection);
    ASSERT_TRUE(deliver());
    EXPECT_TRUE(endsSoon());
}

TEST_F(ConnectionSubscriptionTest, ASlotThatThrowsEndsNothing)
{
    QObject::connect(
        &*source, &Source::happened, &receiver, [] { throw std::runtime_error("a slot's"); },
        Qt::DirectConnection);
    ASSERT_TRUE(deliver());
    ASSERT_TRUE(
        log.waitFor("ZelEventDispatcher::processZelEvents() - a handler threw an exception"));
    ASSERT_TRUE(deliver());
    ASSERT_TRUE(
        log.waitFor("ZelEventDispatcher::processZelEvents() - a handler threw an exception", 2));
    QObject::disconnect(&*source, nullptr, nullptr, nullptr);
    EXPECT_TRUE(endsSoon());
}

enum class Syntax { Function, Text };

class FailedConnection : public ConnectionSubscriptionTest,
                         public testing::WithParamInterface<Syntax>
{
protected:
    void connect(Receiver& target)
    {
        if (GetParam() == Syntax::Function)
            QObject::connect(&*source, &Source::happened, &target, &Receiver::take);
        else
            QObject::connect(&*source, SIGNAL(happened(int)), &target, SLOT(take(int)));
    }
};

TEST_P(FailedConnection, ThrowsIsNotThereAndTheNextOneWorks)
{
    for (const char* const operation :
         {"core.initialize", "core.registerDomain", "core.channelGetActive", "core.eventCreate",
          "core.channelPushEvent"}) {
        SCOPED_TRACE(operation);
        Receiver refused;
        // The first initialisation is the calling thread's, whose result counts for nothing.
        journal.fail(operation, operation == std::string("core.initialize") ? 2 : 1);
        EXPECT_THROW(connect(refused), tamo::Exception);
        connect(receiver);
        EXPECT_TRUE(receives(receiver));
        EXPECT_EQ(refused.calls, 0);
        QObject::disconnect(&*source, nullptr, nullptr, nullptr);
        EXPECT_TRUE(endsSoon());
    }
}

INSTANTIATE_TEST_SUITE_P(Each, FailedConnection, testing::Values(Syntax::Function, Syntax::Text));

TEST_F(ConnectionSubscriptionTest, AFailureToEndItIsLoggedAndTheNextConnectionWorks)
{
    const char line[] = "ZelEventDispatcher::pushStopEventsToDispatchThread() - failed to create "
                        "\"deregister domain\" event";
    QObject::connect(&*source, &Source::happened, &receiver, &Receiver::take);
    journal.fail("core.eventCreate");
    QObject::disconnect(&*source, nullptr, nullptr, nullptr);
    EXPECT_TRUE(log.waitFor(line));
    QObject::connect(&*source, &Source::happened, &receiver, &Receiver::take);
    EXPECT_TRUE(receives(receiver));
    QObject::disconnect(&*source, nullptr, nullptr, nullptr);
    EXPECT_TRUE(endsSoon());
}

TEST_F(ConnectionSubscriptionTest, DestructionOfTheObjectEndsIt)
{
    QObject::connect(&*source, &Source::happened, &receiver, &Receiver::take);
    source.reset();
    EXPECT_EQ(stops(), 1);
}

TEST_F(ConnectionSubscriptionTest, ReceiverAndObjectAreDestroyedOneAfterTheOther)
{
    for (int i = 0; i < 300; ++i) {
        source.emplace(service);
        auto shortLived = std::make_unique<Receiver>();
        QObject::connect(&*source, &Source::happened, shortLived.get(), &Receiver::take);
        EXPECT_TRUE(deliver());
        shortLived.reset();
        source.reset();
    }
}

class ConnectionStorm : public ConnectionSubscriptionTest
{
protected:
    ConnectionStorm()
    {
        journal.setKeeping(false);
        log.setKeeping(false);
    }
};

class ManyReceivers : public ConnectionStorm, public testing::WithParamInterface<bool>
{
};

// With one that stays, signals are emitted all the time; without, subscriptions come and go, too.
TEST_P(ManyReceivers, ComeAndGo)
{
    constexpr int receivers = 20'000;
    constexpr int awaited = 20; // one of so many is there until an event has come
    std::atomic<int> events{0};
    source->whenCalled = [&] { ++events; };
    if (GetParam()) {
        QObject::connect(
            &*source, &Source::happened, &receiver, [] {}, Qt::DirectConnection);
    }
    QElapsedTimer timer;
    timer.start();
    {
        const Storm storm([&] {
            if (core.eventCount() < 1'000) // no more than can be taken
                service.deliver(1);
        });
        for (int i = 0; i < receivers; ++i) {
            auto shortLived = std::make_unique<Receiver>();
            const int before = events;
            QObject::connect(&*source, &Source::happened, shortLived.get(), &Receiver::take);
            if (i % awaited == 0) {
                ASSERT_TRUE(eventually([&] { return events > before; })) << "receiver " << i;
            }
        }
        EXPECT_GE(events, receivers / awaited);
    }
    QObject::disconnect(&*source, nullptr, nullptr, nullptr);
    EXPECT_TRUE(endsSoon());
    EXPECT_LT(timer.elapsed(), 100'000) << "milliseconds";
    source.reset(); // before what its handler counts with
}

INSTANTIATE_TEST_SUITE_P(WithAndWithoutOneThatStays, ManyReceivers, testing::Bool());

TEST_F(ConnectionStorm, ReceiversOfSeveralThreadsComeAndGo)
{
    const Storm storm([&] { service.deliver(1); });
    tamotest::atOnce(4, [&](int) {
        for (int i = 0; i < 1'000; ++i) {
            Receiver shortLived;
            QObject::connect(&*source, &Source::happened, &shortLived, &Receiver::take,
                             i % 2 == 0 ? Qt::AutoConnection : Qt::QueuedConnection);
            if (i % 3 == 0)
                QObject::disconnect(&*source, nullptr, &shortLived, nullptr);
        }
    });
    EXPECT_TRUE(endsSoon());
}

TEST_F(ConnectionStorm, ObjectsAreDestroyed)
{
    const Storm storm([&] { service.deliver(1); });
    for (int i = 0; i < 200; ++i) {
        std::atomic<int> calls{0};
        source.emplace(service);
        source->whenCalled = [&] { ++calls; };
        QObject::connect(&*source, &Source::happened, &receiver, &Receiver::take);
        ASSERT_TRUE(eventually([&] { return calls != 0; }));
        source.reset();
        QCoreApplication::sendPostedEvents();
    }
}

} // namespace

#include "ConnectionSubscriptionTest.moc"

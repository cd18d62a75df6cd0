// SPDX-License-Identifier: Apache-2.0
#include "NetworkTest.h"

#include "system/NetworkStatusManagerImpl.h"

#include <tamo/system/NetworkStatus.h>

#include <QCoreApplication>
#include <QSignalMapper>
#include <QTest>

#include <gmock/gmock.h>

#include <memory>
#include <stdexcept>

using namespace tamotest;
using namespace testing;
using tamo::system::NetworkStatus;
using tamo::system::NetworkStatusManager;
using tamo::system::NetworkStatusManagerImpl;

namespace {

constexpr const char* notFound = "Internal error: Network type not found.";

/** The application's thread has made the manager and is the test's. */
class NetworkStatusManagerImplTest : public NetworkTest
{
protected:
    NetworkStatusManagerImplTest()
    {
        QObject::connect(manager.get(), &NetworkStatusManager::externalNetworkConnected,
                         [this] { notes.add("connected"); });
        QObject::connect(manager.get(), &NetworkStatusManager::externalNetworkDisconnected,
                         [this] { notes.add("disconnected"); });
        manager->watchNetworks();
        awaitEvents();
    }

    void TearDown() override
    {
        manager.reset();
        NetworkTest::TearDown();
    }

    /** Has reports come, and lets the manager fold them. */
    void fold(const std::vector<bool>& reports)
    {
        for (const bool isAvailable : reports)
            report(isAvailable);
        QCoreApplication::processEvents();
    }

    std::unique_ptr<NetworkStatusManagerImpl> manager =
        std::make_unique<NetworkStatusManagerImpl>();
    Notes notes;
};

TEST_F(NetworkStatusManagerImplTest, HearsOfTheNetworkWithoutAnyConnectionOfTheApplications)
{
    EXPECT_EQ(journal.count("netStatus.requestEvents"), 1);
    manager->watchNetworks();
    fold({true});
    EXPECT_THAT(notes.all(), ElementsAre("connected")) << "watched once";
}

TEST_F(NetworkStatusManagerImplTest, FiresOnlyWhereTheFoldedStateChanges)
{
    fold({true, true});
    EXPECT_THAT(notes.all(), ElementsAre("connected"));
    fold({false, false, true, false});
    EXPECT_THAT(notes.all(), ElementsAre("connected", "disconnected", "connected", "disconnected"));
}

TEST_F(NetworkStatusManagerImplTest, BeginsNotConnected)
{
    netStatus.isAvailable = true;
    fold({false});
    EXPECT_THAT(notes.all(), IsEmpty());
    fold({true});
    EXPECT_THAT(notes.all(), ElementsAre("connected"));
}

TEST_F(NetworkStatusManagerImplTest, AThousandReportsInABurstAreFoldedInTheirOrder)
{
    journal.setKeeping(false);
    constexpr int count = 1000;
    std::vector<std::string> expected;
    for (int i = 0; i < count; ++i) {
        EventContent content;
        content.isAvailable = i % 2 == 0;
        ASSERT_TRUE(netStatus.deliver(NETSTATUS_INFO, content));
        expected.emplace_back(content.isAvailable ? "connected" : "disconnected");
    }
    EXPECT_TRUE(QTest::qWaitFor([&] { return notes.all().size() == count; }, 20'000));
    EXPECT_EQ(notes.all(), expected);
    journal.setKeeping(true);
}

TEST_F(NetworkStatusManagerImplTest, AsksThePlatformAtEachQuestion)
{
    EXPECT_FALSE(manager->isExternalNetworkConnected());
    netStatus.isAvailable = true;
    EXPECT_TRUE(manager->isExternalNetworkConnected());
    fold({false});
    EXPECT_TRUE(manager->isExternalNetworkConnected());
    const ErrorCapture errors;
    journal.fail("netStatus.getAvailability");
    EXPECT_FALSE(manager->isExternalNetworkConnected());
    EXPECT_EQ(errors.text(), "netstatus_get_availability() failed:5 - Input/output error\n");
}

TEST_F(NetworkStatusManagerImplTest, KnowsOneNetworkByItsType)
{
    NetworkStatus* const status = manager->networkStatus(1);
    ASSERT_NE(status, nullptr);
    EXPECT_EQ(manager->networkStatus(1), status);
    EXPECT_EQ(status->networkType(), 1);
    EXPECT_TRUE(status->isExternal());
    for (const int type : {2, 0, -1}) {
        try {
            manager->networkStatus(type);
            ADD_FAILURE() << type;
        } catch (const std::logic_error& error) {
            EXPECT_STREQ(error.what(), notFound);
        }
    }
}

TEST_F(NetworkStatusManagerImplTest, SlotsWithAnUnknownTypeThrowAndLeaveNoLock)
{
    for (const char* const slot : {"networkIsConnected", "networkIsDisconnected"}) {
        try {
            QMetaObject::invokeMethod(manager.get(), slot, Q_ARG(int, 2));
            ADD_FAILURE() << slot;
        } catch (const std::logic_error& error) {
            EXPECT_STREQ(error.what(), notFound);
        }
    }
    std::thread([&] {
        QMetaObject::invokeMethod(manager.get(), "networkIsConnected", Qt::DirectConnection,
                                  Q_ARG(int, 1));
    }).join();
    EXPECT_THAT(notes.all(), ElementsAre("connected"));
}

TEST_F(NetworkStatusManagerImplTest, SignalsComeInItsThreadAndMayCallBackIn)
{
    netStatus.isAvailable = true;
    const std::thread::id own = std::this_thread::get_id();
    QObject::connect(manager.get(), &NetworkStatusManager::externalNetworkConnected, [&] {
        notes.add(std::this_thread::get_id() == own && manager->isExternalNetworkConnected() &&
                          manager->networkStatus(1)->isConnected()
                      ? "called back"
                      : "not as it should be");
        QMetaObject::invokeMethod(manager.get(), "networkIsDisconnected", Q_ARG(int, 1));
    });
    fold({true});
    EXPECT_THAT(notes.all(), ElementsAre("connected", "called back", "disconnected"));
}

TEST_F(NetworkStatusManagerImplTest, ReportsOnTheDispatchThreadMayAskTheManager)
{
    QObject::connect(
        manager->networkStatus(1), &NetworkStatus::networkConnected, manager.get(),
        [&] { notes.add(manager->isExternalNetworkConnected() ? "available" : "unavailable"); },
        Qt::DirectConnection);
    netStatus.isAvailable = true;
    report(true);
    EXPECT_THAT(notes.all(), ElementsAre("available"));
    QCoreApplication::processEvents();
    EXPECT_THAT(notes.all(), ElementsAre("available", "connected"));
}

} // namespace

// SPDX-License-Identifier: Apache-2.0
#include "NetworkTest.h"

#include "system/NetworkStatusImpl.h"

#include <QMetaMethod>
#include <QSignalSpy>

#include <gmock/gmock.h>

#include <cstring>
#include <limits>
#include <memory>

using namespace tamotest;
using namespace testing;
using tamo::system::NetworkStatus;
using tamo::system::NetworkStatusImpl;

namespace {

class NetworkStatusImplTest : public NetworkTest
{
protected:
    void TearDown() override
    {
        status.reset();
        NetworkTest::TearDown();
    }

    /** Notes both signals directly, on whichever thread emits. */
    void listen()
    {
        QObject::connect(status.get(), &NetworkStatus::networkConnected,
                         [this] { notes.add("connected"); });
        QObject::connect(status.get(), &NetworkStatus::networkDisconnected,
                         [this] { notes.add("disconnected"); });
        awaitEvents();
    }

    bool isEverythingGone()
    {
        return eventually([this] { return core.channels().empty(); });
    }

    std::unique_ptr<NetworkStatusImpl> status = std::make_unique<NetworkStatusImpl>(7, true);
    Notes notes;
};

TEST_F(NetworkStatusImplTest, KnowsWhatItWasMadeWith)
{
    EXPECT_EQ(status->networkType(), 7);
    EXPECT_TRUE(status->isExternal());
    NetworkStatusImpl other(std::numeric_limits<int>::min(), false);
    EXPECT_EQ(other.networkType(), std::numeric_limits<int>::min());
    EXPECT_FALSE(other.isExternal());
}

TEST_F(NetworkStatusImplTest, EachReportIsASignalAlsoWhereNothingChanged)
{
    listen();
    for (const bool isAvailable : {true, true, false, false, true})
        report(isAvailable);
    EXPECT_THAT(notes.all(),
                ElementsAre("connected", "connected", "disconnected", "disconnected", "connected"));
}

TEST_F(NetworkStatusImplTest, UnknownCodesAreSaidOnStandardErrorAndNothingElse)
{
    listen();
    journal.clear();
    const ErrorCapture errors;
    const std::string line =
        "NetworkStatusImpl::handleZelEvent(): Event received: Unknown netstatus event: ";
    std::string expected;
    for (const int code : {0, 2, -1, 2147483647}) {
        deliver(code, true);
        expected += line + std::to_string(code) + '\n';
    }
    EXPECT_EQ(errors.text(), expected);
    EXPECT_THAT(notes.all(), IsEmpty());
    EXPECT_EQ(journal.count("netStatus.eventGetAvailability"), 0);
}

TEST_F(NetworkStatusImplTest, AsksThePlatformAtEachQuestion)
{
    EXPECT_FALSE(status->isConnected());
    netStatus.isAvailable = true;
    EXPECT_TRUE(status->isConnected());
    listen();
    report(false);
    EXPECT_TRUE(status->isConnected()) << "not what the last report said";
    EXPECT_EQ(journal.count("netStatus.getAvailability"), 3);
}

TEST_F(NetworkStatusImplTest, QuestionThatFailsIsSaidOnStandardErrorAndIsNo)
{
    netStatus.isAvailable = true;
    for (const int error : {ENOENT, EBADMSG, 0, 12345}) {
        const ErrorCapture errors;
        journal.fail("netStatus.getAvailability", 1, error);
        errno = EINTR; // which is somebody else's
        EXPECT_FALSE(status->isConnected());
        EXPECT_EQ(errors.text(), "netstatus_get_availability() failed:" + std::to_string(error) +
                                     " - " + std::strerror(error) + '\n');
    }
    EXPECT_TRUE(status->isConnected());
}

TEST_F(NetworkStatusImplTest, AConnectionToWhicheverSignalAloneRegisters)
{
    for (const char* const name : {"networkConnected()", "networkDisconnected()"}) {
        journal.clear();
        {
            const QMetaObject* const meta = status->metaObject();
            const QSignalSpy spy(status.get(), meta->method(meta->indexOfSignal(name)));
            ASSERT_TRUE(journal.waitForCount("netStatus.requestEvents", 1));
            EXPECT_EQ(journal.calls("netStatus.requestEvents").front().arguments, "0");
        }
        ASSERT_TRUE(isEverythingGone());
        EXPECT_EQ(journal.count("netStatus.stopEvents"), 1);
    }
}

TEST_F(NetworkStatusImplTest, DirectlyConnectedSlotsMayAskConnectAndDisconnect)
{
    netStatus.isAvailable = true;
    QObject::connect(status.get(), &NetworkStatus::networkConnected, [&] {
        notes.add(status->isConnected() && status->networkType() == 7 ? "yes" : "no");
        QObject receiver;
        QObject::connect(status.get(), &NetworkStatus::networkDisconnected, &receiver, [] {});
        QObject::disconnect(status.get(), &NetworkStatus::networkDisconnected, &receiver, nullptr);
    });
    awaitEvents();
    report(true);
    report(true);
    EXPECT_THAT(notes.all(), ElementsAre("yes", "yes"));
}

TEST_F(NetworkStatusImplTest, DeletionEndsASubscriptionThatIsStillOpen)
{
    listen();
    status.reset();
    EXPECT_TRUE(isEverythingGone());
    EXPECT_EQ(journal.count("netStatus.stopEvents"), 1);
}

} // namespace

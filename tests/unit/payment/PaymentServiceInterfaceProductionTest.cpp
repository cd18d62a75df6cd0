// SPDX-License-Identifier: Apache-2.0
// The payment system's back end over a socket that keeps messages apart, as its object does.
#include "platform/payment/PaymentServiceInterfaceProductionImpl.h"

#include "PaymentTest.h"

#include <QSignalSpy>

#include <array>
#include <memory>
#include <string>
#include <sys/socket.h>
#include <thread>
#include <unistd.h>

using tamomock::PaymentServiceInterface;
using tamomock::PaymentServiceInterfaceProductionImpl;

namespace {

class PaymentServiceInterfaceProductionTest : public testing::Test
{
protected:
    PaymentServiceInterfaceProductionTest()
    {
        std::array<int, 2> ends = {};
        EXPECT_EQ(
            ::socketpair(AF_UNIX, SOCK_SEQPACKET | SOCK_NONBLOCK | SOCK_CLOEXEC, 0, ends.data()),
            0);
        end = ends[0];
        paymentSystem = ends[1];
    }
    ~PaymentServiceInterfaceProductionTest() override { ::close(paymentSystem); }

    void say(const std::string& text) const
    {
        EXPECT_EQ(::write(paymentSystem, text.data(), text.size()),
                  static_cast<ssize_t>(text.size()));
    }

    void answer(int id) const
    {
        say("@control\nmsg::x\nid::" + std::to_string(id) + "\nres::x\ndat:json:{}\n");
    }

    std::string heard() const
    {
        std::string text(4096, '\0');
        const ssize_t size = ::read(paymentSystem, text.data(), text.size());
        text.resize(static_cast<std::size_t>(std::max<ssize_t>(size, 0)));
        return text;
    }

    /** Connects to a back end as the service does, and keeps what it takes. */
    void follow(PaymentServiceInterface& backEnd)
    {
        QObject::connect(
            &backEnd, &PaymentServiceInterface::dataReady, &receiver,
            [this, &backEnd] {
                const auto response = backEnd.takeResponse();
                taken.append(response ? response->requestId : -1);
            },
            Qt::QueuedConnection);
    }

    bool waitFor(const QList<int>& expected) const
    {
        return QTest::qWaitFor([&] { return taken == expected; }, 10'000);
    }

    int end = -1;
    int paymentSystem = -1;
    QObject receiver;
    QList<int> taken;
};

TEST_F(PaymentServiceInterfaceProductionTest, EachOperationIsAMessage)
{
    PaymentServiceInterfaceProductionImpl backEnd(end, "p.i");
    const auto dat = [this] {
        const std::string text = heard();
        return text.substr(0, text.find("\ndat"));
    };
    backEnd.purchase("g", "s", "n", "m", "a", "i", "w", 1);
    EXPECT_EQ(dat(), "msg::paymentSystemType\nid::1");
    backEnd.existingPurchases(true, "w", 2);
    EXPECT_EQ(heard(), "msg::getExistingPurchasesType\nid::2\n"
                       R"(dat:json:{"uiGroupID":"w","purchaseAppID":"p.i","allowRefresh":true})"
                       "\n");
    backEnd.price("g", "s", "w", 3);
    EXPECT_EQ(dat(), "msg::getPriceType\nid::3");
    backEnd.checkStatus("g", "s", "w", 4);
    EXPECT_EQ(dat(), "msg::checkExistingType\nid::4");
    backEnd.cancelSubscription("p", "w", 5);
    EXPECT_EQ(heard(), "msg::cancelSubscriptionType\nid::5\n"
                       R"(dat:json:{"purchaseID":"p","purchaseAppID":"p.i","uiGroupID":"w"})"
                       "\n");
}

TEST_F(PaymentServiceInterfaceProductionTest, OneReadinessIsOneAnnouncement)
{
    PaymentServiceInterfaceProductionImpl backEnd(end, {});
    QSignalSpy announced(&backEnd, &PaymentServiceInterface::dataReady);
    answer(1);
    answer(2);
    ASSERT_TRUE(announced.wait(10'000));
    // However often the event loop turns, until the answer was taken.
    bool isOver = false;
    QMetaObject::invokeMethod(
        &receiver, [&] { isOver = true; }, Qt::QueuedConnection);
    for (int turn = 0; turn < 100 || !isOver; ++turn)
        QCoreApplication::processEvents();
    EXPECT_EQ(announced.count(), 1);
    EXPECT_EQ(backEnd.takeResponse()->requestId, 1);
    ASSERT_TRUE(announced.wait(10'000));
    EXPECT_EQ(backEnd.takeResponse()->requestId, 2);
}

TEST_F(PaymentServiceInterfaceProductionTest, EachOfSeveralAnswersIsTakenOnce)
{
    PaymentServiceInterfaceProductionImpl backEnd(end, {});
    follow(backEnd);
    for (const int id : {3, 1, 2})
        answer(id);
    EXPECT_TRUE(waitFor({3, 1, 2}));
}

TEST_F(PaymentServiceInterfaceProductionTest, MalformedAnswerIsNoneAndTheNextArrives)
{
    PaymentServiceInterfaceProductionImpl backEnd(end, {});
    follow(backEnd);
    say("garbage");
    say("@control\nmsg::x\nid::2\nres::getPriceFailure\ndat:json:{\"errorID\":1}\n");
    answer(3);
    EXPECT_TRUE(waitFor({-1, -1, 3}));
}

TEST_F(PaymentServiceInterfaceProductionTest, NothingToReadIsNone)
{
    PaymentServiceInterfaceProductionImpl backEnd(end, {});
    EXPECT_FALSE(backEnd.takeResponse());
    EXPECT_FALSE(backEnd.takeResponse());
    follow(backEnd);
    answer(1);
    EXPECT_TRUE(waitFor({1}));
}

TEST_F(PaymentServiceInterfaceProductionTest, DescriptorThatHasEndedIsReportedTwiceAndThenLeft)
{
    PaymentServiceInterfaceProductionImpl backEnd(end, {});
    follow(backEnd);
    ASSERT_EQ(::shutdown(paymentSystem, SHUT_WR), 0);
    EXPECT_TRUE(waitFor({-1, -1}));
    for (int turn = 0; turn < 100; ++turn)
        QCoreApplication::processEvents();
    EXPECT_EQ(taken.size(), 2);
}

TEST_F(PaymentServiceInterfaceProductionTest, ComesAlongToAnotherThread)
{
    std::unique_ptr<PaymentServiceInterfaceProductionImpl> backEnd;
    // One without an event dispatcher, which cannot watch.
    std::thread([&] {
        backEnd = std::make_unique<PaymentServiceInterfaceProductionImpl>(end, QByteArray());
        backEnd->moveToThread(receiver.thread());
    }).join();
    follow(*backEnd);
    answer(1);
    answer(2);
    EXPECT_TRUE(waitFor({1, 2}));
}

TEST_F(PaymentServiceInterfaceProductionTest, ItsEndClosesTheDescriptor)
{
    std::make_unique<PaymentServiceInterfaceProductionImpl>(end, QByteArray());
    char byte = 0;
    EXPECT_EQ(::read(paymentSystem, &byte, 1), 0);
}

TEST_F(PaymentServiceInterfaceProductionTest, RequestThatCannotBeWrittenThrows)
{
    PaymentServiceInterfaceProductionImpl backEnd(end, {});
    EXPECT_THROW(backEnd.price(QString(QChar(0)), "s", "w", 1), tamo::Exception);
    EXPECT_EQ(heard(), "");
    EXPECT_THROW(backEnd.price(QString(1 << 22, 'x'), "s", "w", 1), tamo::Exception);
    backEnd.price("g", "s", "w", 2);
    EXPECT_NE(heard(), "");
}

} // namespace

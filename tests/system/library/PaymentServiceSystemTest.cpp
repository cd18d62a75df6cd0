// SPDX-License-Identifier: Apache-2.0
// Production, with a payment system of the test's own, over a real /pps.
#include <tamo/Exception.h>
#include <tamo/platform/PaymentService.h>
#include <tamomock/PaymentServiceInterface.h>
#include <tamomock/PaymentServiceInterfaceFactory.h>

#include "MailboxService.h"
#include "PaymentLibraryTest.h"

#include <memory>
#include <thread>
#include <unistd.h>

using tamo::platform::PaymentService;
using tamomock::PaymentServiceInterfaceFactory;
using tamotest::PaymentCustomer;

namespace {

const QByteArray manifest = "Package-Name: shop\nPackage-Id: id\nApplication-Name: Shop\n";

class PaymentServiceSystemTest : public tamotest::PaymentLibraryTest
{
protected:
    PaymentServiceSystemTest() { writeManifest(manifest); }

    PaymentService& service() const { return *PaymentService::getInstance(); }

    /** The id of the next request; a request's own text. */
    QByteArray nextId() { return paymentSystem.next().value("id").toByteArray(); }

    QByteArray askForPrice(const QString& good = "g")
    {
        service().requestPrice(good, &customer, PaymentCustomer::price());
        return nextId();
    }

    void answerPrice(const QByteArray& id, const QByteArray& price) const
    {
        paymentSystem.write("msg::getPriceType\nid::" + id +
                            "\nres::getPriceSuccess\ndat:json:{\"price\":\"" + price + "\"}\n");
    }

    QStringList prices() const
    {
        QStringList list;
        for (const auto& info : customer.prices)
            list.append(info.price());
        return list;
    }

    tamotest::MailboxService paymentSystem{"services/paymentsystem/control"};
};

// The first one, since the service is not made here.
TEST_F(PaymentServiceSystemTest, ServiceIsNotMadeWithoutAManifest)
{
    EXPECT_TRUE(QFile::remove("app/META-INF/MANIFEST.MF"));
    EXPECT_THROW(PaymentService::getInstance(), tamo::Exception);
    writeManifest("");
    EXPECT_THROW(PaymentService::getInstance(), tamo::Exception);
    writeManifest("Package-Name: shop\nApplication-Name: Shop\nPackage-Id: id\n");
    EXPECT_THROW(PaymentService::getInstance(), tamo::Exception);
    EXPECT_TRUE(QFile::remove("app/META-INF/MANIFEST.MF"));
    EXPECT_TRUE(QDir().mkdir("app/META-INF/MANIFEST.MF"));
    EXPECT_THROW(PaymentService::getInstance(), tamo::Exception);
    EXPECT_TRUE(QDir().rmdir("app/META-INF/MANIFEST.MF"));
    ASSERT_EQ(::mkfifo("app/META-INF/MANIFEST.MF", 0600), 0);
    EXPECT_THROW(PaymentService::getInstance(), tamo::Exception);
    EXPECT_TRUE(QFile::remove("app/META-INF/MANIFEST.MF"));
    writeManifest(manifest);
    EXPECT_NO_THROW(PaymentService::getInstance());
}

TEST_F(PaymentServiceSystemTest, PurchaseGoesOutAndItsReceiptComesBack)
{
    service().setWindowGroupId("group");
    service().setApplicationName(QString::fromUtf8("L\xc3\xa4"
                                                   "den"));
    service().setApplicationIcon(QUrl("file:///icon.png"));
    service().requestPurchase("g", "s", "n", "m", &customer, PaymentCustomer::purchase());
    const QVariantMap request = paymentSystem.next();
    EXPECT_EQ(request.value("msg").toString(), "paymentSystemType");
    EXPECT_EQ(request.value("dat").toMap(),
              (QVariantMap{{"digitalGoodID", "g"},
                           {"digitalGoodSKU", "s"},
                           {"digitalGoodName", "n"},
                           {"metaData", "m"},
                           {"purchaseAppName", QString::fromUtf8("L\xc3\xa4"
                                                                 "den")},
                           {"purchaseAppIcon", "file:///icon.png"},
                           {"uiGroupID", "group"},
                           {"purchaseAppID", "shop.id"}}));
    paymentSystem.write("msg::paymentSystemType\nid::" + request.value("id").toByteArray() +
                        "\nres::paymentSystemSuccess\ndat:json:{\"itemState\":\"0\","
                        "\"digitalGoodID\":\"g\",\"licenseKey\":\"k\"}\n");
    ASSERT_TRUE(waitForAnswers(1));
    ASSERT_TRUE(customer.purchases.value(0).receipt());
    EXPECT_EQ(customer.purchases.value(0).receipt()->licenseKey(), "k");
    EXPECT_FALSE(customer.purchases.value(0).receipt()->isSubscription());
}

TEST_F(PaymentServiceSystemTest, AnswersThatWaitAreTakenOneByOneAndInAnyOrder)
{
    const QByteArray first = askForPrice("1");
    const QByteArray second = askForPrice("2");
    const QByteArray third = askForPrice("3");
    answerPrice(third, "c");
    answerPrice(first, "a");
    answerPrice(second, "b");
    ASSERT_TRUE(waitForAnswers(3));
    EXPECT_EQ(prices(), (QStringList{"c", "a", "b"}));
    EXPECT_TRUE(tamotest::CatchingApplication::instance()->caught.empty());
}

TEST_F(PaymentServiceSystemTest, WrongAnswersThrowOnceEachAndTheNextArrives)
{
    const QByteArray id = askForPrice();
    paymentSystem.write("msg::x\n");
    paymentSystem.write("msg::x\nid::999999\nres::x\ndat:json:{}\n");
    answerPrice(id, "right");
    answerPrice(id, "again");
    const QByteArray next = askForPrice();
    answerPrice(next, "next");
    ASSERT_TRUE(waitForAnswers(2));
    EXPECT_EQ(prices(), (QStringList{"right", "next"}));
    EXPECT_EQ(tamotest::CatchingApplication::instance()->caught.size(), 3U);
}

TEST_F(PaymentServiceSystemTest, AnswerThatIsTooLongIsReportedOnceAndConsumed)
{
    const QByteArray id = askForPrice();
    answerPrice(id, QByteArray(200'000, 'x'));
    answerPrice(id, "short");
    ASSERT_TRUE(waitForAnswers(1));
    EXPECT_EQ(prices(), QStringList{"short"});
    EXPECT_EQ(tamotest::CatchingApplication::instance()->caught.size(), 1U);
}

TEST_F(PaymentServiceSystemTest, AnswerAsLongAsTheBufferIsRead)
{
    const QByteArray id = askForPrice();
    const QByteArray frame = "@control\nmsg::getPriceType\nid::" + id +
                             "\nres::getPriceSuccess\ndat:json:{\"price\":\"\"}\n";
    answerPrice(id, QByteArray(65536 - frame.size(), 'x'));
    ASSERT_TRUE(waitForAnswers(1));
    EXPECT_EQ(prices().value(0).size(), 65536 - frame.size());
    const QByteArray other = askForPrice();
    ASSERT_EQ(other.size(), id.size());
    answerPrice(other, QByteArray(65536 - frame.size() + 1, 'x'));
    EXPECT_TRUE(waitForExceptions(1));
}

TEST_F(PaymentServiceSystemTest, SlotThatThrowsDoesNotStopTheNextAnswer)
{
    customer.onAnswer = [] { throw tamo::Exception(); };
    answerPrice(askForPrice(), "a");
    ASSERT_TRUE(waitForExceptions(1));
    customer.onAnswer = nullptr;
    answerPrice(askForPrice(), "b");
    ASSERT_TRUE(waitForAnswers(2));
    EXPECT_EQ(prices(), (QStringList{"a", "b"}));
}

TEST_F(PaymentServiceSystemTest, AnswersOfTheFormerBackEndNeverComeAndItsEndIsItsClientsEnd)
{
    const QByteArray id = askForPrice();
    service().setConnectionMode(0);
    service().setConnectionMode(1);
    answerPrice(askForPrice(), "new");
    ASSERT_TRUE(waitForAnswers(1));
    EXPECT_EQ(prices(), QStringList{"new"});
    answerPrice(id, "late"); // to the new client, and the request still waits
    ASSERT_TRUE(waitForAnswers(2));
}

TEST_F(PaymentServiceSystemTest, ModeIsSetFromAnotherThreadAndBack)
{
    std::thread([this] {
        service().setConnectionMode(0);
        service().setConnectionMode(1);
    }).join();
    answerPrice(askForPrice(), "a");
    answerPrice(askForPrice(), "b");
    ASSERT_TRUE(waitForAnswers(2));
    EXPECT_EQ(prices(), (QStringList{"a", "b"}));
}

// The last one: what follows finds no filesystem.
TEST_F(PaymentServiceSystemTest, EndOfTheFilesystemIsReportedAndThenLeft)
{
    const QByteArray id = askForPrice();
    filesystem->kill();
    ASSERT_TRUE(waitForExceptions(2));
    for (int turn = 0; turn < 100; ++turn)
        QCoreApplication::processEvents();
    EXPECT_EQ(tamotest::CatchingApplication::instance()->caught.size(), 2U);
    EXPECT_THROW(service().requestPrice("g", &customer, PaymentCustomer::price()), tamo::Exception);
}

} // namespace

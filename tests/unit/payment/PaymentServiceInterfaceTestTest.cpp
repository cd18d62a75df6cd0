// SPDX-License-Identifier: Apache-2.0
// Test mode, as far as it needs no dialog.
#include "platform/payment/PaymentServiceImpl.h"

#include "PaymentTest.h"

#include <QSignalSpy>

#include <memory>

using namespace tamo::platform;
using tamomock::PaymentServiceInterface;
using tamomock::PaymentServiceInterfaceFactory;
using tamotest::deliver;
using tamotest::PaymentCustomer;

namespace {

class PaymentServiceInterfaceTestTest : public testing::Test
{
protected:
    const std::unique_ptr<PaymentServiceInterface> backEnd{
        PaymentServiceInterfaceFactory::createDefault(0)};
    QSignalSpy announced{backEnd.get(), &PaymentServiceInterface::dataReady};
};

TEST_F(PaymentServiceInterfaceTestTest, HasARecordBeforeAnyAnswer)
{
    const auto response = backEnd->takeResponse();
    ASSERT_TRUE(response);
    EXPECT_EQ(response->requestId, 0);
    EXPECT_FALSE(response->error);
    EXPECT_TRUE(response->errorText.isNull());
    EXPECT_TRUE(response->purchases.isEmpty());
}

TEST_F(PaymentServiceInterfaceTestTest, AnswersAtOnce)
{
    backEnd->price("g", "s", "w", 3);
    EXPECT_EQ(announced.count(), 1);
    const auto response = backEnd->takeResponse();
    EXPECT_EQ(response->requestId, 3);
    EXPECT_FALSE(response->error);
    EXPECT_EQ(response->price, "$1.99");
    EXPECT_EQ(response->initialPeriod, "7");
    EXPECT_EQ(response->renewalPrice, "$.99");
    EXPECT_EQ(response->renewalPeriod, "14");
}

TEST_F(PaymentServiceInterfaceTestTest, RefreshIsAnErrorAndTheListIsNot)
{
    backEnd->existingPurchases(true, "w", 4);
    const auto refused = backEnd->takeResponse();
    EXPECT_TRUE(refused->error);
    EXPECT_EQ(refused->errorCode, 1);
    EXPECT_EQ(refused->errorText, "Get existing purchases (network) not supported in test mode.");
    backEnd->existingPurchases(false, "w", 5);
    const auto list = backEnd->takeResponse();
    EXPECT_EQ(list->requestId, 5);
    EXPECT_FALSE(list->error);
    EXPECT_TRUE(list->purchases.isEmpty());
}

TEST_F(PaymentServiceInterfaceTestTest, OneRecordKeepsWhatIsNotSet)
{
    backEnd->existingPurchases(true, "w", 1);
    backEnd->price("g", "s", "w", 2);
    backEnd->checkStatus("g", "s", "w", 3);
    backEnd->cancelSubscription("p", "w", 4);
    EXPECT_EQ(announced.count(), 4);
    const auto response = backEnd->takeResponse();
    EXPECT_EQ(response->requestId, 4);
    EXPECT_FALSE(response->error);
    EXPECT_EQ(response->errorCode, 1);
    EXPECT_EQ(response->price, "$1.99");
    EXPECT_TRUE(response->subscriptionExists);
    EXPECT_TRUE(response->cancelled);
    EXPECT_TRUE(response->purchaseId.isNull());
}

TEST_F(PaymentServiceInterfaceTestTest, AnswerCanBeTakenInsideOfItsAnnouncement)
{
    int id = -1;
    QObject::connect(backEnd.get(), &PaymentServiceInterface::dataReady,
                     [&] { id = backEnd->takeResponse()->requestId; });
    backEnd->checkStatus("g", "s", "w", 8);
    EXPECT_EQ(id, 8);
}

TEST_F(PaymentServiceInterfaceTestTest, AnswerThatWasTakenStaysAsItIs)
{
    backEnd->checkStatus("g", "s", "w", 1);
    const auto taken = backEnd->takeResponse();
    backEnd->price("g", "s", "w", 2);
    EXPECT_EQ(taken->requestId, 1);
    EXPECT_TRUE(taken->price.isNull());
}

TEST_F(PaymentServiceInterfaceTestTest, PurchaseWithoutADialogThrows)
{
    EXPECT_THROW(backEnd->purchase("g", "s", "n", "m", "a", "i", "w", 1), tamo::Exception);
    EXPECT_EQ(announced.count(), 0);
}

TEST(PaymentTestModeTest, TwoRequestsBeforeTheEventLoopShareTheRecord)
{
    PaymentServiceInterfaceFactory::setCreator(
        [](int) { return PaymentServiceInterfaceFactory::createDefault(0); });
    PaymentServiceImpl service;
    PaymentServiceInterfaceFactory::resetCreator();
    PaymentCustomer customer;
    service.requestPrice("g", &customer, PaymentCustomer::price());
    service.requestSubscriptionTerms("g", "s", &customer, PaymentCustomer::term());
    EXPECT_EQ(deliver(), 1);
    EXPECT_TRUE(customer.prices.isEmpty());
    ASSERT_EQ(customer.terms.size(), 1);
    const auto& terms = customer.terms[0];
    EXPECT_EQ((QStringList{terms.price(), terms.initialPeriod(), terms.renewalPrice(),
                           terms.renewalPeriod(), terms.digitalGoodId(), terms.digitalGoodSku()}),
              (QStringList{"$1.99", "7", "$.99", "14", "g", "s"}));
    service.requestPrice("g", &customer, PaymentCustomer::price());
    EXPECT_EQ(deliver(), 0);
    EXPECT_EQ(customer.prices.value(0).price(), "$1.99");
}

} // namespace

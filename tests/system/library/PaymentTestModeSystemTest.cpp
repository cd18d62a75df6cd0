// SPDX-License-Identifier: Apache-2.0
// Test mode, with a dialog service of the test's own, over a real /pps.
#include <tamo/Exception.h>
#include <tamo/platform/PaymentService.h>
#include <tamomock/PaymentServiceInterface.h>
#include <tamomock/PaymentServiceInterfaceFactory.h>

#include "MailboxService.h"
#include "PaymentLibraryTest.h"

#include <atomic>
#include <functional>
#include <future>
#include <memory>
#include <thread>

using tamo::platform::PaymentService;
using tamomock::PaymentServiceInterfaceFactory;
using tamotest::PaymentCustomer;

namespace {

const QByteArray bought = R"({"resp_obj":{"errorSelection":"paymentSuccess",)"
                          R"("responseBtnLabel":"confirmpurchase.buynow","purchaseID":")";

class PaymentTestModeSystemTest : public tamotest::PaymentLibraryTest
{
protected:
    /** The service, which has had no payment system at any time. */
    static PaymentService& service()
    {
        PaymentServiceInterfaceFactory::setCreator(
            [](int) { return PaymentServiceInterfaceFactory::createDefault(0); });
        return *PaymentService::getInstance();
    }

    /** Purchases, while the dialog answers with such a "dat", or with something else in its place.
     */
    void purchase(const QByteArray& dat, const QString& good = "g", const QByteArray& id = {})
    {
        std::thread user([&] {
            request = dialog.next();
            const QByteArray own = request.value("id").toByteArray();
            dialog.write("msg::show\nid::" + (id.isNull() ? own : id) +
                         "\nres::x\ndat:json:" + dat + "\n");
        });
        const auto join = [](std::thread* thread) { thread->join(); };
        const std::unique_ptr<std::thread, decltype(join)> joined(&user, join);
        service().requestPurchase(good, "s", "n", "m", &customer, PaymentCustomer::purchase());
    }

    tamotest::MailboxService dialog{"services/dialog/control"};
    QVariantMap request;
};

TEST_F(PaymentTestModeSystemTest, DialogIsShownAndItsPurchaseIsAReceipt)
{
    service().setWindowGroupId("group");
    service().setApplicationName("app");
    purchase(bought + "p\"}}");
    ASSERT_TRUE(waitForAnswers(1));
    const auto receipt = customer.purchases[0].receipt();
    ASSERT_TRUE(receipt);
    EXPECT_EQ(receipt->purchaseId(), "p");
    EXPECT_EQ(receipt->digitalGoodId(), "g");
    EXPECT_EQ(request.value("msg").toString(), "show");
    const QVariantMap shown = request.value("dat").toMap().value("desc_obj").toMap();
    EXPECT_EQ(shown.value("groupId").toString(), "group");
    EXPECT_EQ(shown.value("vendor").toString(), "app");
    EXPECT_EQ(shown.value("buttons").toList().size(), 2);
}

TEST_F(PaymentTestModeSystemTest, CancelledAndFailedPurchasesAreErrors)
{
    purchase(R"({"resp_obj":{"errorSelection":"paymentSuccess",)"
             R"("responseBtnLabel":"confirmpurchase.cancel"}})");
    ASSERT_TRUE(waitForAnswers(1));
    EXPECT_EQ(customer.purchases[0].errorCode(), 3);
    EXPECT_EQ(customer.purchases[0].errorText(), "Purchase was canceled.");
    EXPECT_FALSE(customer.purchases[0].receipt());
    EXPECT_EQ(customer.purchases[0].digitalGoodId(), "g");
    purchase(R"({"resp_obj":{"errorSelection":"no money"}})");
    ASSERT_TRUE(waitForAnswers(2));
    EXPECT_EQ(customer.purchases[1].errorCode(), 4);
    EXPECT_EQ(customer.purchases[1].errorText(), "no money");
    purchase("{}");
    ASSERT_TRUE(waitForAnswers(3));
    EXPECT_EQ(customer.purchases[2].errorCode(), 1);
}

TEST_F(PaymentTestModeSystemTest, ListHoldsThePurchasesInTheirOrder)
{
    service().requestExistingPurchases(false, &customer, PaymentCustomer::list());
    ASSERT_TRUE(waitForAnswers(1));
    const auto before = customer.existing[0].purchases().size();
    customer.count = 0;
    purchase(bought + "1\"}}", "a");
    ASSERT_TRUE(waitForAnswers(1));
    purchase(bought + "2\"}}", "b");
    ASSERT_TRUE(waitForAnswers(2));
    service().requestExistingPurchases(false, &customer, PaymentCustomer::list());
    ASSERT_TRUE(waitForAnswers(3));
    const auto purchases = customer.existing[1].purchases();
    ASSERT_EQ(purchases.size(), before + 2);
    EXPECT_EQ(purchases[before].digitalGoodId(), "a");
    EXPECT_EQ(purchases[before + 1].purchaseId(), "2");
}

TEST_F(PaymentTestModeSystemTest, MalformedAnswerThrowsOutOfTheRequestAndTheNextWorks)
{
    EXPECT_THROW(purchase("{}", "g", "no id"), tamo::Exception);
    EXPECT_THROW(purchase("{\"long\":\"" + QByteArray(2000, 'x') + "\"}"), tamo::Exception);
    purchase(bought + "p\"}}");
    ASSERT_TRUE(waitForAnswers(1));
    EXPECT_TRUE(tamotest::CatchingApplication::instance()->caught.empty());
}

TEST_F(PaymentTestModeSystemTest, OtherThreadsWaitWhileTheDialogIsOpen)
{
    service();
    std::atomic<bool> isAnswered{false};
    std::atomic<bool> hasWaited{false};
    std::promise<void> isOpen;
    std::thread other([&] {
        isOpen.get_future().wait();
        service().requestPrice("g", &customer, PaymentCustomer::price());
        hasWaited = isAnswered.load();
    });
    std::thread user([&] {
        const QByteArray id = dialog.next().value("id").toByteArray();
        isOpen.set_value();
        // Were it not to wait, this is where it would come through.
        EXPECT_FALSE(QTest::qWaitFor([&] { return hasWaited || customer.count > 0; }, 100));
        isAnswered = true;
        dialog.write("msg::show\nid::" + id + "\nres::x\ndat:json:" + bought + "p\"}}\n");
    });
    service().requestPurchase("g", &customer, PaymentCustomer::purchase());
    user.join();
    other.join();
    EXPECT_TRUE(hasWaited);
}

} // namespace

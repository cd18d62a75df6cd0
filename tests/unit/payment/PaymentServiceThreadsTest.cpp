// SPDX-License-Identifier: Apache-2.0
#include "platform/payment/PaymentServiceImpl.h"

#include "PaymentTest.h"

#include <tamomock/PurchaseReceiptEditor.h>

#include <QSignalSpy>

#include <algorithm>
#include <atomic>
#include <thread>
#include <vector>

using namespace tamo::platform;
using tamotest::PaymentCustomer;

namespace {

class PaymentServiceThreadsTest : public tamotest::PaymentTest
{
protected:
    PaymentServiceThreadsTest()
    {
        // Purchases ask the process's service for the application's name.
        PaymentService::getInstance();
        modes.clear();
        service = std::make_unique<PaymentServiceImpl>();
    }
    ~PaymentServiceThreadsTest() override { service.reset(); }

    std::unique_ptr<PaymentServiceImpl> service;
};

TEST_F(PaymentServiceThreadsTest, RequestsFromEverywhereAreAnsweredHere)
{
    constexpr int threadCount = 4;
    constexpr int requestsOfAThread = 200;
    backEnd->onRequest = [this](int id) { backEnd->answer(id); };
    std::vector<std::thread> threads;
    for (int i = 0; i < threadCount; ++i)
        threads.emplace_back([this] {
            for (int k = 0; k < requestsOfAThread; ++k)
                service->requestPrice("g", &customer, PaymentCustomer::price());
        });
    EXPECT_TRUE(QTest::qWaitFor(
        [this] { return customer.count == threadCount * requestsOfAThread; }, 30'000));
    for (std::thread& thread : threads)
        thread.join();
    EXPECT_EQ(customer.thread, QThread::currentThread());
    QList<int> ids = backEnd->ids;
    std::sort(ids.begin(), ids.end());
    EXPECT_EQ(std::unique(ids.begin(), ids.end()), ids.end());
}

TEST_F(PaymentServiceThreadsTest, ReceiverInAnotherThreadIsCalledThere)
{
    QThread thread;
    auto* const far = new PaymentCustomer;
    far->moveToThread(&thread);
    QObject::connect(&thread, &QThread::finished, far, &QObject::deleteLater);
    thread.start();
    const auto response = QSharedPointer<InterfaceResponse>::create();
    response->receipt = QSharedPointer<PurchaseReceipt>::create();
    tamomock::PurchaseReceiptEditor(*response->receipt).setPurchaseId("p");
    response->purchases = {*response->receipt};
    backEnd->onRequest = [&](int id) {
        const auto copy = QSharedPointer<InterfaceResponse>::create(*response);
        copy->requestId = id;
        backEnd->answer(copy);
    };
    service->requestExistingPurchases(false, far, PaymentCustomer::list());
    service->checkStatus("g", far, PaymentCustomer::status());
    service->requestPrice("g", far, PaymentCustomer::price());
    service->requestSubscriptionTerms("g", far, PaymentCustomer::term());
    service->cancelSubscription("p", far, PaymentCustomer::cancel());
    service->requestPurchase("g", far, PaymentCustomer::purchase());
    EXPECT_TRUE(QTest::qWaitFor([far] { return far->count == 6; }, 30'000));
    EXPECT_EQ(far->thread, &thread);
    EXPECT_EQ(far->purchases.value(0).receipt(), response->receipt);
    EXPECT_EQ(far->existing.value(0).purchases().value(0).purchaseId(), "p");
    thread.quit();
    EXPECT_TRUE(thread.wait(30'000));
}

TEST_F(PaymentServiceThreadsTest, ModeIsSetFromAThreadWithoutAnEventLoop)
{
    std::thread([this] { service->setConnectionMode(0); }).join();
    EXPECT_EQ(backEnd->thread(), service->thread());
    EXPECT_EQ(modes, (QList<int>{1, 0})); // the former one goes here
    EXPECT_TRUE(QTest::qWaitFor([this] { return modes == QList<int>{1, 0, -1}; }, 30'000));
    backEnd->onRequest = [this](int id) { backEnd->answer(id); };
    service->requestPrice("g", &customer, PaymentCustomer::price());
    EXPECT_TRUE(QTest::qWaitFor([this] { return customer.count == 1; }, 30'000));
}

TEST_F(PaymentServiceThreadsTest, ModesAndRequestsTakeTurns)
{
    tamomock::PaymentServiceInterfaceFactory::setCreator([](int) {
        auto* const made = new tamotest::SubstitutePayments;
        made->onRequest = [made](int id) { made->answer(id); };
        return made;
    });
    backEnd->onRequest = [first = backEnd](int id) { first->answer(id); };
    constexpr int rounds = 200;
    std::atomic<int> thrown{0};
    std::thread switching([this] {
        for (int i = 0; i < rounds; ++i)
            service->setConnectionMode(i % 2);
    });
    std::thread asking([&] {
        for (int i = 0; i < rounds; ++i)
            service->requestPrice("g", &customer, PaymentCustomer::price());
    });
    // Each request is answered, or its answer went with its back end and says so by an exception.
    const auto isOver = [&] {
        thrown += tamotest::deliver();
        return customer.count + thrown >= rounds;
    };
    switching.join();
    asking.join();
    EXPECT_TRUE(QTest::qWaitFor(isOver, 30'000));
    thrown += tamotest::deliver();
    EXPECT_EQ(customer.count + thrown, rounds);
}

} // namespace

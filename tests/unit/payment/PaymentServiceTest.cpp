// SPDX-License-Identifier: Apache-2.0
// Requests and answers, over a back end of the test's.
#include "platform/payment/PaymentServiceImpl.h"

#include "PaymentTest.h"

#include <tamomock/PaymentServiceInterfaceProduction.h>
#include <tamomock/PaymentServiceInterfaceTest.h>
#include <tamomock/PurchaseReceiptEditor.h>

#include <QMetaObject>
#include <QRegularExpression>
#include <QSignalSpy>
#include <QStringList>

#include <stdexcept>

using namespace tamo::platform;
using tamomock::PaymentServiceInterfaceFactory;
using tamotest::deliver;
using tamotest::PaymentCustomer;

namespace {

class PaymentServiceTest : public tamotest::PaymentTest
{
protected:
    using Response = QSharedPointer<InterfaceResponse>;

    PaymentServiceTest() : service(*new PaymentServiceImpl), till(*backEnd)
    {
        service.setWindowGroupId("group");
        // Purchases ask the process's service for the application's name.
        PaymentService::getInstance()->setApplicationName("app");
        PaymentService::getInstance()->setApplicationIcon(QUrl("file:///icon.png"));
        modes.clear();
    }
    ~PaymentServiceTest() override
    {
        delete &service;
        modes.clear();
    }

    void makeEachRequest()
    {
        service.requestPurchase("g", "s", "n", "m", &customer, PaymentCustomer::purchase());
        service.requestExistingPurchases(true, &customer, PaymentCustomer::list());
        service.requestPrice("g", "s", &customer, PaymentCustomer::price());
        service.requestSubscriptionTerms("g", "s", &customer, PaymentCustomer::term());
        service.checkStatus("g", "s", &customer, PaymentCustomer::status());
        service.cancelSubscription("p", &customer, PaymentCustomer::cancel());
    }

    int askForPrice()
    {
        service.requestPrice("g", &customer, PaymentCustomer::price());
        return till.ids.last();
    }

    static Response response(int id)
    {
        const auto made = Response::create();
        made->requestId = id;
        return made;
    }

    PaymentServiceImpl& service;
    tamotest::SubstitutePayments& till;
};

TEST_F(PaymentServiceTest, RequestEndsWithItsSignal)
{
    bool isThere = false;
    customer.onAnswer = [&] { isThere = !customer.origin.isNull(); };
    till.answer(askForPrice());
    EXPECT_EQ(deliver(), 0);
    EXPECT_TRUE(isThere);
    EXPECT_TRUE(customer.origin.isNull());
}

TEST_F(PaymentServiceTest, EachRequestIsHandedOnWithAllOfIt)
{
    makeEachRequest();
    EXPECT_EQ(till.calls, (tamotest::SubstitutePayments::Calls{
                              {"purchase", "g", "s", "n", "m", "app", "file:///icon.png", "group"},
                              {"existing", "true", "group"},
                              {"price", "g", "s", "group"},
                              {"price", "g", "s", "group"},
                              {"check", "g", "s", "group"},
                              {"cancel", "p", "group"}}));
}

TEST_F(PaymentServiceTest, IdsAscendByOneAcrossAllKinds)
{
    makeEachRequest();
    for (int i = 1; i < till.ids.size(); ++i)
        EXPECT_EQ(till.ids[i], till.ids[0] + i);
}

TEST_F(PaymentServiceTest, MissingTextsAreEmptyAndNotNull)
{
    service.requestPurchase("g", &customer, PaymentCustomer::purchase());
    service.requestPurchase("g", "s", &customer, PaymentCustomer::purchase());
    service.requestPurchase("g", "s", "n", &customer, PaymentCustomer::purchase());
    service.requestPrice("g", &customer, PaymentCustomer::price());
    service.requestSubscriptionTerms("g", &customer, PaymentCustomer::term());
    service.checkStatus("g", &customer, PaymentCustomer::status());
    service.requestExistingPurchases(false, &customer, PaymentCustomer::list());
    EXPECT_EQ(till.calls, (tamotest::SubstitutePayments::Calls{
                              {"purchase", "g", "", "", "", "app", "file:///icon.png", "group"},
                              {"purchase", "g", "s", "", "", "app", "file:///icon.png", "group"},
                              {"purchase", "g", "s", "n", "", "app", "file:///icon.png", "group"},
                              {"price", "g", "", "group"},
                              {"price", "g", "", "group"},
                              {"check", "g", "", "group"},
                              {"existing", "false", "group"}}));
    for (const int field : {2, 3, 4}) {
        EXPECT_FALSE(till.calls[0][field].isNull());
        EXPECT_TRUE(till.calls[0][field].isEmpty());
    }
}

TEST_F(PaymentServiceTest, ShorterRequestsGoThroughTheLongestOne)
{
    struct Catching : PaymentServiceImpl
    {
        void requestPurchase(const QString& a, const QString& b, const QString& c, const QString& d,
                             QObject*, const char*) override
        {
            caught.append(a + '/' + b + '/' + c + '/' + d);
        }
        void requestPrice(const QString& a, const QString& b, QObject*, const char*) override
        {
            caught.append(a + '/' + b);
        }
        void requestSubscriptionTerms(const QString& a, const QString& b, QObject*,
                                      const char*) override
        {
            caught.append(a + '/' + b);
        }
        void checkStatus(const QString& a, const QString& b, QObject*, const char*) override
        {
            caught.append(a + '/' + b);
        }
        QStringList caught;
    };
    Catching catching;
    PaymentService& asService = catching;
    asService.requestPurchase("1", nullptr, nullptr);
    asService.requestPurchase("2", "s", nullptr, nullptr);
    asService.requestPurchase("3", "s", "n", nullptr, nullptr);
    asService.requestPrice("4", nullptr, nullptr);
    asService.requestSubscriptionTerms("5", nullptr, nullptr);
    asService.checkStatus("6", nullptr, nullptr);
    EXPECT_EQ(catching.caught, (QStringList{"1///", "2/s//", "3/s/n/", "4/", "5/", "6/"}));
}

TEST_F(PaymentServiceTest, SuccessReachesItsReceiver)
{
    makeEachRequest();
    for (const int id : qAsConst(till.ids)) {
        const Response made = response(id);
        made->receipt = QSharedPointer<PurchaseReceipt>::create();
        tamomock::PurchaseReceiptEditor(*made->receipt).setDigitalGoodId("good");
        made->purchases = {*made->receipt, PurchaseReceipt()};
        made->price = "1";
        made->initialPeriod = "2";
        made->renewalPrice = "3";
        made->renewalPeriod = "4";
        made->subscriptionExists = true;
        made->purchaseId = "the answer's";
        made->cancelled = true;
        made->errorCode = 5;
        made->errorText = "of no error";
        till.answer(made);
    }
    EXPECT_EQ(deliver(), 0);
    ASSERT_EQ(customer.count, 6);

    const PurchaseResponseInfo& purchase = customer.purchases.value(0);
    ASSERT_TRUE(purchase.receipt());
    EXPECT_EQ(purchase.receipt()->digitalGoodId(), "good");
    EXPECT_TRUE(purchase.digitalGoodId().isEmpty());
    EXPECT_TRUE(purchase.digitalGoodSku().isEmpty());
    EXPECT_TRUE(purchase.purchaseMetadata().isEmpty());

    ASSERT_EQ(customer.existing.value(0).purchases().size(), 2);
    EXPECT_EQ(customer.existing.value(0).purchases().first().digitalGoodId(), "good");

    EXPECT_EQ(customer.prices.value(0).price(), "1");
    EXPECT_EQ(customer.prices.value(0).digitalGoodId(), "g");
    EXPECT_EQ(customer.prices.value(0).digitalGoodSku(), "s");

    const SubscriptionTermsResponseInfo& terms = customer.terms.value(0);
    EXPECT_EQ((QStringList{terms.price(), terms.initialPeriod(), terms.renewalPrice(),
                           terms.renewalPeriod(), terms.digitalGoodId(), terms.digitalGoodSku()}),
              (QStringList{"1", "2", "3", "4", "g", "s"}));

    EXPECT_TRUE(customer.statuses.value(0).active());
    EXPECT_EQ(customer.statuses.value(0).digitalGoodId(), "g");
    EXPECT_TRUE(customer.cancellations.value(0).canceled());
    EXPECT_EQ(customer.cancellations.value(0).purchaseId(), "p");
    EXPECT_FALSE(purchase.error());
    EXPECT_EQ(purchase.errorCode(), 0);
    EXPECT_TRUE(purchase.errorText().isNull());
}

TEST_F(PaymentServiceTest, FailureReachesItsReceiver)
{
    makeEachRequest();
    for (const int id : qAsConst(till.ids)) {
        const Response made = response(id);
        made->error = true;
        made->errorCode = 4;
        made->errorText = "no";
        made->price = "1";
        made->receipt = QSharedPointer<PurchaseReceipt>::create();
        till.answer(made);
    }
    EXPECT_EQ(deliver(), 0);
    const auto expectFailed = [](const PaymentServiceResponse& info) {
        EXPECT_TRUE(info.error());
        EXPECT_EQ(info.errorCode(), 4);
        EXPECT_EQ(info.errorText(), "no");
    };
    const auto expectGood = [](const DigitalGoodResponse& info) {
        EXPECT_EQ(info.digitalGoodId(), "g");
        EXPECT_EQ(info.digitalGoodSku(), "s");
    };
    ASSERT_EQ(customer.count, 6);
    expectFailed(customer.purchases[0]);
    expectFailed(customer.existing[0]);
    expectFailed(customer.prices[0]);
    expectFailed(customer.terms[0]);
    expectFailed(customer.statuses[0]);
    expectFailed(customer.cancellations[0]);
    expectGood(customer.purchases[0]);
    expectGood(customer.prices[0]);
    expectGood(customer.terms[0]);
    expectGood(customer.statuses[0]);
    EXPECT_FALSE(customer.purchases[0].receipt());
    EXPECT_TRUE(customer.prices[0].price().isNull());
    EXPECT_TRUE(customer.cancellations[0].purchaseId().isNull());
}

TEST_F(PaymentServiceTest, AnswerIsDeliveredQueued)
{
    till.onRequest = [this](int id) { till.answer(id); };
    askForPrice();
    EXPECT_EQ(customer.count, 0);
    EXPECT_EQ(deliver(), 0);
    EXPECT_EQ(customer.count, 1);
}

TEST_F(PaymentServiceTest, AnswersMayComeInAnyOrder)
{
    service.requestPrice("first", &customer, PaymentCustomer::price());
    service.requestPrice("second", &customer, PaymentCustomer::price());
    till.answer(till.ids[1]);
    till.answer(till.ids[0]);
    EXPECT_EQ(deliver(), 0);
    ASSERT_EQ(customer.prices.size(), 2);
    EXPECT_EQ(customer.prices[0].digitalGoodId(), "second");
    EXPECT_EQ(customer.prices[1].digitalGoodId(), "first");
}

TEST_F(PaymentServiceTest, SecondAnswerToOneRequestThrowsAndTheNextArrives)
{
    const int id = askForPrice();
    till.answer(id);
    till.answer(id);
    till.answer(askForPrice());
    EXPECT_EQ(deliver(), 1);
    EXPECT_EQ(customer.count, 2);
}

TEST_F(PaymentServiceTest, AnswerForNobodyAndNoAnswerThrowAndTheNextArrives)
{
    const int id = askForPrice();
    till.answer(-1);
    till.answer(id + 1);
    till.answer(nullptr);
    EXPECT_EQ(deliver(), 3);
    EXPECT_EQ(customer.count, 0);
    till.answer(id);
    EXPECT_EQ(deliver(), 0);
    EXPECT_EQ(customer.count, 1);
}

TEST_F(PaymentServiceTest, SlotMayThrowAndTheNextAnswerArrives)
{
    customer.onAnswer = [] { throw std::runtime_error("the application's"); };
    till.answer(askForPrice());
    EXPECT_THROW(QCoreApplication::sendPostedEvents(), std::runtime_error);
    customer.onAnswer = nullptr;
    till.answer(askForPrice());
    EXPECT_EQ(deliver(), 0);
    EXPECT_EQ(customer.count, 2);
}

TEST_F(PaymentServiceTest, SlotMayMakeRequestsAndSetTheMode)
{
    customer.onAnswer = [this] {
        customer.onAnswer = nullptr;
        askForPrice();
        service.setConnectionMode(0);
    };
    till.answer(askForPrice());
    EXPECT_EQ(deliver(), 0);
    EXPECT_EQ(modes, (QList<int>{-1, 0}));
    service.setConnectionMode(1);
}

TEST_F(PaymentServiceTest, RequestThatCannotBeSentIsNotKept)
{
    int failed = -1;
    till.onRequest = [&failed](int id) {
        failed = id;
        throw tamo::Exception();
    };
    EXPECT_THROW(askForPrice(), tamo::Exception);
    till.onRequest = nullptr;
    EXPECT_EQ(askForPrice(), failed + 1);
    till.answer(failed);
    EXPECT_EQ(deliver(), 1);
    EXPECT_EQ(customer.count, 0);
}

TEST_F(PaymentServiceTest, ReceiverThatIsGoneAndSlotThatIsNotThereLoseTheAnswer)
{
    {
        PaymentCustomer gone;
        service.requestPrice("g", &gone, PaymentCustomer::price());
    }
    QTest::ignoreMessage(QtWarningMsg, QRegularExpression("No such slot .*nothing"));
    service.requestPrice("g", &customer, SLOT(nothing()));
    till.answer(till.ids[0]);
    till.answer(till.ids[1]);
    EXPECT_EQ(deliver(), 0);
    EXPECT_EQ(customer.count, 0);
}

TEST_F(PaymentServiceTest, ModeThatIsSetAlreadyStays)
{
    service.setConnectionMode(1);
    EXPECT_TRUE(modes.isEmpty());
    service.setConnectionMode(0);
    service.setConnectionMode(0);
    EXPECT_EQ(modes, (QList<int>{-1, 0})); // deleted before the next is made
}

TEST_F(PaymentServiceTest, ModeWithoutABackEndLeavesNone)
{
    PaymentServiceInterfaceFactory::setCreator([](int) { return nullptr; });
    till.answer(askForPrice());
    EXPECT_THROW(service.setConnectionMode(7), tamo::Exception);
    EXPECT_EQ(modes, QList<int>{-1});
    EXPECT_THROW(makeEachRequest(), tamo::Exception);
    EXPECT_EQ(deliver(), 1);      // what was announced before
    service.setConnectionMode(1); // still set
    EXPECT_THROW(makeEachRequest(), tamo::Exception);
    EXPECT_EQ(customer.count, 0);
}

TEST_F(PaymentServiceTest, BackEndThatCannotBeMadeLeavesNone)
{
    PaymentServiceInterfaceFactory::setCreator(
        [](int) -> tamomock::PaymentServiceInterface* { throw std::logic_error("cannot"); });
    EXPECT_THROW(service.setConnectionMode(0), std::logic_error);
    EXPECT_EQ(modes, QList<int>{-1});
    EXPECT_THROW(makeEachRequest(), tamo::Exception);
}

TEST_F(PaymentServiceTest, PendingRequestIsAnsweredByTheNextBackEnd)
{
    const int id = askForPrice();
    service.setConnectionMode(0);
    backEnd->answer(id);
    EXPECT_EQ(deliver(), 0);
    EXPECT_EQ(customer.count, 1);
}

TEST_F(PaymentServiceTest, FormerBackEndsAnnouncementIsNotTheNextOnesAnswer)
{
    const int id = askForPrice();
    till.answer(id);
    service.setConnectionMode(0);
    backEnd->answer(id);
    EXPECT_EQ(deliver(), 1);
    EXPECT_EQ(customer.count, 1);
}

TEST_F(PaymentServiceTest, SlotOfTheMetaObjectTakesAnAnswer)
{
    const int id = askForPrice();
    const auto made = response(id);
    till.blockSignals(true);
    till.answer(made);
    till.blockSignals(false);
    EXPECT_TRUE(QMetaObject::invokeMethod(&service, "onDataReady", Qt::DirectConnection));
    EXPECT_EQ(customer.count, 1);
}

int typeId(const char* name)
{
#if QT_VERSION >= QT_VERSION_CHECK(6, 0, 0)
    return QMetaType::fromName(name).id();
#else
    return QMetaType::type(name);
#endif
}

/** A class's own methods, as the meta-object tells them. */
QStringList methodsOf(const QMetaObject& meta)
{
    QStringList methods;
    for (int i = meta.methodOffset(); i < meta.methodCount(); ++i)
        methods.append(QString::fromLatin1(meta.method(i).methodSignature()));
    return methods;
}

TEST_F(PaymentServiceTest, MetaObjectsTellWhatIsDeclared)
{
    EXPECT_STREQ(PaymentService::staticMetaObject.className(), "tamo::platform::PaymentService");
    EXPECT_EQ(methodsOf(PaymentService::staticMetaObject), QStringList());
    EXPECT_EQ(PaymentService::staticMetaObject.propertyCount(),
              QObject::staticMetaObject.propertyCount());
    EXPECT_EQ(methodsOf(*service.metaObject()), QStringList{"onDataReady()"});
    EXPECT_STREQ(service.metaObject()->className(), "tamo::platform::PaymentServiceImpl");
    const QMetaObject& interface = tamomock::PaymentServiceInterface::staticMetaObject;
    EXPECT_STREQ(interface.className(), "tamomock::PaymentServiceInterface");
    EXPECT_EQ(methodsOf(interface), QStringList{"dataReady()"});
    for (const QMetaObject* const meta :
         {&tamomock::PaymentServiceInterfaceProduction::staticMetaObject,
          &tamomock::PaymentServiceInterfaceTest::staticMetaObject})
        EXPECT_EQ(meta->superClass(), &interface);
}

TEST_F(PaymentServiceTest, AnswersAreRegisteredUnderTheirNames)
{
    for (const char* const name :
         {"QList<tamo::platform::PurchaseReceipt>", "tamo::platform::PurchaseReceipt",
          "tamo::platform::PurchaseResponseInfo", "tamo::platform::ExistingPurchasesResponseInfo",
          "tamo::platform::PriceResponseInfo", "tamo::platform::SubscriptionTermsResponseInfo",
          "tamo::platform::CheckStatusResponseInfo",
          "tamo::platform::CancelSubscriptionResponseInfo"})
        EXPECT_NE(typeId(name), 0) << name;
}

TEST_F(PaymentServiceTest, RemembersTheApplication)
{
    EXPECT_TRUE(service.applicationName().isNull());
    EXPECT_TRUE(service.applicationIcon().isEmpty());
    service.setApplicationName("name");
    service.setApplicationIcon(QUrl("http://icon"));
    EXPECT_EQ(service.applicationName(), "name");
    EXPECT_EQ(service.applicationIcon(), QUrl("http://icon"));
}

} // namespace

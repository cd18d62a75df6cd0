// SPDX-License-Identifier: Apache-2.0
#ifndef TAMO_TESTS_PAYMENTCUSTOMER_H
#define TAMO_TESTS_PAYMENTCUSTOMER_H

#include <tamo/platform/PaymentService.h>

#include <QList>
#include <QObject>
#include <QPointer>
#include <QThread>

#include <atomic>
#include <functional>

namespace tamotest {

/** A receiver that keeps the answers of each kind. */
class PaymentCustomer : public QObject
{
    Q_OBJECT

public:
    QList<tamo::platform::PurchaseResponseInfo> purchases;
    QList<tamo::platform::ExistingPurchasesResponseInfo> existing;
    QList<tamo::platform::PriceResponseInfo> prices;
    QList<tamo::platform::SubscriptionTermsResponseInfo> terms;
    QList<tamo::platform::CheckStatusResponseInfo> statuses;
    QList<tamo::platform::CancelSubscriptionResponseInfo> cancellations;

    /** How many answers there were; read from any thread. */
    std::atomic<int> count{0};

    /** The thread that the last slot ran in. */
    std::atomic<QThread*> thread{nullptr};

    /** The object whose signal the last slot was called by. */
    QPointer<QObject> origin;

    /** Called by each slot, last. */
    std::function<void()> onAnswer;

    static const char* purchase() { return SLOT(onPurchase(tamo::platform::PurchaseResponseInfo)); }
    static const char* list()
    {
        return SLOT(onExisting(tamo::platform::ExistingPurchasesResponseInfo));
    }
    static const char* price() { return SLOT(onPrice(tamo::platform::PriceResponseInfo)); }
    static const char* term()
    {
        return SLOT(onTerms(tamo::platform::SubscriptionTermsResponseInfo));
    }
    static const char* status() { return SLOT(onStatus(tamo::platform::CheckStatusResponseInfo)); }
    static const char* cancel()
    {
        return SLOT(onCancellation(tamo::platform::CancelSubscriptionResponseInfo));
    }

public Q_SLOTS:
    void onPurchase(const tamo::platform::PurchaseResponseInfo& info) { keep(purchases, info); }
    void onExisting(const tamo::platform::ExistingPurchasesResponseInfo& info)
    {
        keep(existing, info);
    }
    void onPrice(const tamo::platform::PriceResponseInfo& info) { keep(prices, info); }
    void onTerms(const tamo::platform::SubscriptionTermsResponseInfo& info) { keep(terms, info); }
    void onStatus(const tamo::platform::CheckStatusResponseInfo& info) { keep(statuses, info); }
    void onCancellation(const tamo::platform::CancelSubscriptionResponseInfo& info)
    {
        keep(cancellations, info);
    }

private:
    template<class Info>
    void keep(QList<Info>& list, const Info& info)
    {
        list.append(info);
        thread = QThread::currentThread();
        origin = sender();
        ++count;
        if (onAnswer)
            onAnswer();
    }
};

} // namespace tamotest

#endif

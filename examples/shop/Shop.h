// SPDX-License-Identifier: Apache-2.0
#ifndef SHOP_H
#define SHOP_H

#include <tamo/platform/PaymentService.h>

#include <QObject>

/** Makes one request of the payment service, prints its answer, and ends the application. */
class Shop : public QObject
{
    Q_OBJECT

public:
    /** A request for a good or, for "cancel", a purchase. Returns whether there is such a request.
     */
    bool ask(const QString& request, const QString& about);

private Q_SLOTS:
    void onPurchase(const tamo::platform::PurchaseResponseInfo& info);
    void onPurchases(const tamo::platform::ExistingPurchasesResponseInfo& info);
    void onPrice(const tamo::platform::PriceResponseInfo& info);
    void onTerms(const tamo::platform::SubscriptionTermsResponseInfo& info);
    void onStatus(const tamo::platform::CheckStatusResponseInfo& info);
    void onCancellation(const tamo::platform::CancelSubscriptionResponseInfo& info);
};

#endif

// SPDX-License-Identifier: Apache-2.0
#include "Shop.h"

#include <QCoreApplication>

#include <iostream>

using namespace tamo::platform;

namespace {

std::ostream& operator<<(std::ostream& out, const QString& text)
{
    return out << text.toStdString();
}

std::ostream& operator<<(std::ostream& out, const PurchaseReceipt& receipt)
{
    return out << receipt.digitalGoodId() << ", purchase " << receipt.purchaseId();
}

/** Prints an answer, by `print` where it is not an error, and ends the application. */
template<class Print>
void end(const PaymentServiceResponse& info, const Print& print)
{
    if (info.error())
        std::cout << "error " << info.errorCode() << ": " << info.errorText();
    else
        print();
    std::cout << std::endl;
    QCoreApplication::exit(info.error() ? 1 : 0);
}

} // namespace

bool Shop::ask(const QString& request, const QString& about)
{
    PaymentService& payments = *PaymentService::getInstance();
    if (request == QLatin1String("buy"))
        payments.requestPurchase(about, this,
                                 SLOT(onPurchase(tamo::platform::PurchaseResponseInfo)));
    else if (request == QLatin1String("list"))
        payments.requestExistingPurchases(
            false, this, SLOT(onPurchases(tamo::platform::ExistingPurchasesResponseInfo)));
    else if (request == QLatin1String("price"))
        payments.requestPrice(about, this, SLOT(onPrice(tamo::platform::PriceResponseInfo)));
    else if (request == QLatin1String("terms"))
        payments.requestSubscriptionTerms(
            about, this, SLOT(onTerms(tamo::platform::SubscriptionTermsResponseInfo)));
    else if (request == QLatin1String("status"))
        payments.checkStatus(about, this, SLOT(onStatus(tamo::platform::CheckStatusResponseInfo)));
    else if (request == QLatin1String("cancel"))
        payments.cancelSubscription(
            about, this, SLOT(onCancellation(tamo::platform::CancelSubscriptionResponseInfo)));
    else
        return false;
    return true;
}

void Shop::onPurchase(const PurchaseResponseInfo& info)
{
    end(info, [&] { std::cout << "bought: " << *info.receipt(); });
}

void Shop::onPurchases(const ExistingPurchasesResponseInfo& info)
{
    end(info, [&] {
        const QList<PurchaseReceipt> purchases = info.purchases();
        std::cout << purchases.size() << " purchases";
        for (const PurchaseReceipt& receipt : purchases)
            std::cout << '\n' << receipt;
    });
}

void Shop::onPrice(const PriceResponseInfo& info)
{
    end(info, [&] { std::cout << info.digitalGoodId() << " costs " << info.price(); });
}

void Shop::onTerms(const SubscriptionTermsResponseInfo& info)
{
    end(info, [&] {
        std::cout << info.digitalGoodId() << " costs " << info.price() << " for "
                  << info.initialPeriod() << " days, then " << info.renewalPrice() << " for each "
                  << info.renewalPeriod() << " days";
    });
}

void Shop::onStatus(const CheckStatusResponseInfo& info)
{
    end(info, [&] {
        std::cout << info.digitalGoodId() << (info.active() ? " is" : " is not") << " subscribed";
    });
}

void Shop::onCancellation(const CancelSubscriptionResponseInfo& info)
{
    end(info, [&] {
        std::cout << info.purchaseId() << (info.canceled() ? " is" : " is not") << " cancelled";
    });
}

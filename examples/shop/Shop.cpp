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
    out << receipt.digitalGoodId() << ", purchase " << receipt.purchaseId();
    if (receipt.endDate().isValid())
        out << ", until " << receipt.endDate().toString(Qt::ISODate);
    return out;
}

/** Prints an answer, by `print` where it is not an error, and ends the application. `print` returns
 * whether the answer tells what was asked for. */
template<class Print>
void end(const PaymentServiceResponse& info, const Print& print)
{
    bool isTold = false;
    if (info.error())
        std::cout << "error " << info.errorCode() << ": " << info.errorText();
    else
        isTold = print();
    std::cout << std::endl;
    QCoreApplication::exit(isTold ? 0 : 1);
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
    end(info, [&] {
        const QSharedPointer<PurchaseReceipt> receipt = info.receipt();
        if (receipt)
            std::cout << "bought: " << *receipt;
        else // the answer is to something else
            std::cout << "the payment system does not say what was bought";
        return bool(receipt);
    });
}

void Shop::onPurchases(const ExistingPurchasesResponseInfo& info)
{
    end(info, [&] {
        const QList<PurchaseReceipt> purchases = info.purchases();
        std::cout << purchases.size() << " purchases";
        for (const PurchaseReceipt& receipt : purchases)
            std::cout << '\n' << receipt;
        return true;
    });
}

void Shop::onPrice(const PriceResponseInfo& info)
{
    end(info, [&] {
        std::cout << info.digitalGoodId() << " costs " << info.price();
        return !info.price().isEmpty();
    });
}

void Shop::onTerms(const SubscriptionTermsResponseInfo& info)
{
    end(info, [&] {
        std::cout << info.digitalGoodId() << " costs " << info.price() << " for "
                  << info.initialPeriod() << " days, then " << info.renewalPrice() << " for each "
                  << info.renewalPeriod() << " days";
        return !info.price().isEmpty();
    });
}

void Shop::onStatus(const CheckStatusResponseInfo& info)
{
    end(info, [&] {
        std::cout << info.digitalGoodId() << (info.active() ? " is" : " is not") << " subscribed";
        return true;
    });
}

void Shop::onCancellation(const CancelSubscriptionResponseInfo& info)
{
    end(info, [&] {
        std::cout << info.purchaseId() << (info.canceled() ? " is" : " is not") << " cancelled";
        return true;
    });
}

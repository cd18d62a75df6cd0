// SPDX-License-Identifier: Apache-2.0
#include "PurchaseApplication.h"

#include "Clock.h"

#include <tamo/platform/PaymentService.h>

namespace tamobench {

using tamo::platform::PaymentService;

namespace {

// A good of the box's own catalogue.
const QString good = QStringLiteral("approved");

enum Order { Price = 1, Purchase };

} // namespace

PurchaseApplication::PurchaseApplication(Dispatcher dispatcher)
{
    m_process.start(dispatcher, [this] { run(); });
}

double PurchaseApplication::price()
{
    return take(Price);
}

double PurchaseApplication::purchase()
{
    return take(Purchase);
}

double PurchaseApplication::take(int order)
{
    m_process.order(order);
    const std::int64_t end = m_process.await(order);
    return static_cast<double>(end - *m_start);
}

void PurchaseApplication::run()
{
    PaymentService& payments = *PaymentService::getInstance();
    m_process.exec([this, &payments](int order) {
        m_order = order;
        *m_start = now();
        if (order == Price)
            payments.requestPrice(good, this, SLOT(onPrice(tamo::platform::PriceResponseInfo)));
        else
            payments.requestPurchase(good, this,
                                     SLOT(onPurchase(tamo::platform::PurchaseResponseInfo)));
    });
}

void PurchaseApplication::onPrice(const tamo::platform::PriceResponseInfo& info)
{
    tell(info);
}

void PurchaseApplication::onPurchase(const tamo::platform::PurchaseResponseInfo& info)
{
    tell(info);
}

// The benchmark awaits what it has ordered, so an error is told by another value.
void PurchaseApplication::tell(const tamo::platform::PaymentServiceResponse& info)
{
    const std::int64_t end = now();
    m_process.tell(end, info.error() ? -info.errorCode() : m_order);
}

} // namespace tamobench

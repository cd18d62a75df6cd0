// SPDX-License-Identifier: Apache-2.0
#ifndef TAMO_PLATFORM_PAYMENT_EXISTINGPURCHASESRESPONSEINFOPRIVATE_H
#define TAMO_PLATFORM_PAYMENT_EXISTINGPURCHASESRESPONSEINFOPRIVATE_H

#include "PaymentServiceResponsePrivate.h"

#include <tamo/platform/PurchaseReceipt.h>

#include <QtCore/QList>

namespace tamo {
namespace platform {

class ExistingPurchasesResponseInfoPrivate : public PaymentServiceResponsePrivate
{
public:
    using PaymentServiceResponsePrivate::PaymentServiceResponsePrivate;

    QList<PurchaseReceipt> purchases;
};

} // namespace platform
} // namespace tamo

#endif

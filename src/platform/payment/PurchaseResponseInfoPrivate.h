// SPDX-License-Identifier: Apache-2.0
#ifndef TAMO_PLATFORM_PAYMENT_PURCHASERESPONSEINFOPRIVATE_H
#define TAMO_PLATFORM_PAYMENT_PURCHASERESPONSEINFOPRIVATE_H

#include "DigitalGoodResponsePrivate.h"

#include <tamo/platform/PurchaseReceipt.h>

#include <QtCore/QSharedPointer>

namespace tamo {
namespace platform {

class PurchaseResponseInfoPrivate : public DigitalGoodResponsePrivate
{
public:
    using DigitalGoodResponsePrivate::DigitalGoodResponsePrivate;

    QSharedPointer<PurchaseReceipt> receipt;
    QString purchaseMetadata;
};

} // namespace platform
} // namespace tamo

#endif

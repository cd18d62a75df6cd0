// SPDX-License-Identifier: Apache-2.0
#ifndef TAMO_PLATFORM_PAYMENT_PURCHASERECEIPTPRIVATE_H
#define TAMO_PLATFORM_PAYMENT_PURCHASERECEIPTPRIVATE_H

#include "ReceiptDate.h"

#include <tamo/platform/PurchaseReceipt.h>

#include <QtCore/QString>

namespace tamo {
namespace platform {

/** A receipt's fields, and the way back to the receipt, which no copy takes over. */
class PurchaseReceiptPrivate
{
public:
    /** What one receipt tells, and its copy too. */
    struct Fields
    {
        int state = 5;
        ReceiptDate date;
        QString digitalGoodId;
        QString digitalGoodSku;
        QString licenseKey;
        QString purchaseMetadata;
        QString purchaseId;
        ReceiptDate startDate;
        ReceiptDate endDate;
        int initialPeriod = -1;
    };

    explicit PurchaseReceiptPrivate(PurchaseReceipt* receipt) : q(receipt) {}
    PurchaseReceiptPrivate(PurchaseReceipt* receipt, const Fields& copied)
        : q(receipt), fields(copied)
    {
    }
    PurchaseReceiptPrivate(const PurchaseReceiptPrivate&) = delete;
    PurchaseReceiptPrivate& operator=(const PurchaseReceiptPrivate&) = delete;
    virtual ~PurchaseReceiptPrivate() = default;

    static Fields& of(PurchaseReceipt& receipt) { return receipt.d->fields; }

    PurchaseReceipt* const q;
    Fields fields;
};

} // namespace platform
} // namespace tamo

#endif

// SPDX-License-Identifier: Apache-2.0
#ifndef TAMO_PLATFORM_PAYMENT_PURCHASERECEIPTPRIVATE_H
#define TAMO_PLATFORM_PAYMENT_PURCHASERECEIPTPRIVATE_H

#include <QtCore/QDateTime>
#include <QtCore/QString>

namespace tamo {
namespace platform {

class PurchaseReceipt;

/** A receipt's fields, and the way back to the receipt, which no copy takes over. */
class PurchaseReceiptPrivate
{
public:
    /** What one receipt tells, and its copy too. */
    struct Fields
    {
        int state = 5;
        QDateTime date;
        QString digitalGoodId;
        QString digitalGoodSku;
        QString licenseKey;
        QString purchaseMetadata;
        QString purchaseId;
        QDateTime startDate;
        QDateTime endDate;
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

    PurchaseReceipt* const q;
    Fields fields;
};

} // namespace platform
} // namespace tamo

#endif

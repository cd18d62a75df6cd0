// SPDX-License-Identifier: Apache-2.0
#ifndef TAMOMOCK_PURCHASERECEIPTEDITOR_H
#define TAMOMOCK_PURCHASERECEIPTEDITOR_H

#include <tamo/export.h>

#include <QtCore/QDateTime>
#include <QtCore/QString>

namespace tamo {
namespace platform {
class PurchaseReceipt;
class PurchaseReceiptPrivate;
} // namespace platform
} // namespace tamo

namespace tamomock {

/**
 * Fills a receipt, for a PaymentServiceInterface that answers with it. What the fields mean is told
 * by tamo::platform::PurchaseReceipt; each is set as it is given.
 *
 *     tamo::platform::PurchaseReceipt receipt;
 *     tamomock::PurchaseReceiptEditor(receipt).setState(0).setPurchaseId("42");
 *
 * @since 0.1
 */
class TAMO_EXPORT PurchaseReceiptEditor
{
public:
    /** An editor of a receipt that outlives it. */
    explicit PurchaseReceiptEditor(tamo::platform::PurchaseReceipt& receipt);

    PurchaseReceiptEditor& setState(int state);
    PurchaseReceiptEditor& setDate(const QDateTime& date);
    PurchaseReceiptEditor& setDigitalGoodId(const QString& digitalGoodId);
    PurchaseReceiptEditor& setDigitalGoodSku(const QString& digitalGoodSku);
    PurchaseReceiptEditor& setLicenseKey(const QString& licenseKey);
    PurchaseReceiptEditor& setPurchaseMetadata(const QString& purchaseMetadata);
    PurchaseReceiptEditor& setPurchaseId(const QString& purchaseId);
    PurchaseReceiptEditor& setStartDate(const QDateTime& startDate);
    PurchaseReceiptEditor& setEndDate(const QDateTime& endDate);
    PurchaseReceiptEditor& setInitialPeriod(int initialPeriod);

private:
    tamo::platform::PurchaseReceiptPrivate& m_receipt;
};

} // namespace tamomock

#endif

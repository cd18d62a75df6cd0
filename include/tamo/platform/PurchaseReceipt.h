// SPDX-License-Identifier: Apache-2.0
#ifndef TAMO_PLATFORM_PURCHASERECEIPT_H
#define TAMO_PLATFORM_PURCHASERECEIPT_H

#include <tamo/export.h>

#include <QtCore/QDateTime>
#include <QtCore/QMetaType>
#include <QtCore/QString>

#include <memory>

namespace tamomock {
class PurchaseReceiptEditor;
}

namespace tamo {
namespace platform {

class PurchaseReceiptPrivate;

/**
 * The record of one purchase, as the payment system tells it. What it does not tell is null, or the
 * value that is given for it below. A copy is independent of its original.
 *
 * One receipt is used by one thread at a time; different receipts are independent.
 *
 * @since 0.1
 */
class TAMO_EXPORT PurchaseReceipt
{
public:
    /** A receipt that tells nothing. */
    PurchaseReceipt();
    PurchaseReceipt(const PurchaseReceipt& other);
    PurchaseReceipt& operator=(const PurchaseReceipt& other);
    virtual ~PurchaseReceipt();

    QString digitalGoodId() const;
    QString digitalGoodSku() const;

    /** The good's licence key, exactly as the payment system gave it. */
    QString licenseKey() const;

    /** The text that the application passed with the purchase. */
    QString purchaseMetadata() const;

    /** The payment system's name for the purchase, which cancelSubscription() takes. */
    QString purchaseId() const;

    /** The payment system's number for what has become of the purchase: 0 for a good that is not a
     * subscription, and for a text that is no number; 5 where it does not tell (but 0 in test
     * mode), or tells what is no `int`. */
    int state() const;

    /** A subscription's initial period, in the payment system's unit. -1 where it is not told, or
     * the subscription's dates are not; 0 for a text that is no number, and for a subscription of
     * test mode's that does not tell. */
    int initialPeriod() const;

    /** When the purchase was made. */
    QDateTime date() const;

    /** When the subscription begins; null for what is not one. */
    QDateTime startDate() const;

    /** When the subscription ends; null for what is not one. */
    QDateTime endDate() const;

    /** Whether state() is another one than 0: also where the payment system does not tell. */
    bool isSubscription() const;

private:
    friend class PurchaseReceiptPrivate;
    friend class tamomock::PurchaseReceiptEditor;

    const std::unique_ptr<PurchaseReceiptPrivate> d;
};

} // namespace platform
} // namespace tamo

Q_DECLARE_METATYPE(tamo::platform::PurchaseReceipt)

#endif

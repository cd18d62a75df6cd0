// SPDX-License-Identifier: Apache-2.0
#ifndef TAMO_PLATFORM_PURCHASERESPONSEINFO_H
#define TAMO_PLATFORM_PURCHASERESPONSEINFO_H

#include <tamo/platform/DigitalGoodResponse.h>
#include <tamo/platform/PurchaseReceipt.h>

#include <QtCore/QSharedPointer>

namespace tamo {
namespace platform {

/**
 * The answer to a purchase.
 *
 * After a success everything is in the receipt, and only there: digitalGoodId(), digitalGoodSku()
 * and purchaseMetadata() are empty. After a failure digitalGoodId() and digitalGoodSku() are what
 * was to be purchased.
 *
 * @since 0.1
 */
class TAMO_EXPORT PurchaseResponseInfo : public DigitalGoodResponse
{
public:
    /** An answer without an error, and empty. */
    PurchaseResponseInfo();

    /** An answer without an error, about a good. */
    PurchaseResponseInfo(const QString& digitalGoodId, const QString& digitalGoodSku);

    /** An answer that says that the request about a good failed. */
    PurchaseResponseInfo(const QString& digitalGoodId, const QString& digitalGoodSku, int errorCode,
                         const QString& errorText);

    PurchaseResponseInfo(const PurchaseResponseInfo& other);
    PurchaseResponseInfo& operator=(const PurchaseResponseInfo& other);
    ~PurchaseResponseInfo() override;

    /** What was purchased; null after a failure, and where the payment system's answer tells of no
     * purchase: then nothing is known to be bought. Copies of the answer share the receipt. */
    QSharedPointer<PurchaseReceipt> receipt() const;

    /** Empty: the receipt holds the purchase's metadata. */
    QString purchaseMetadata() const;
};

} // namespace platform
} // namespace tamo

Q_DECLARE_METATYPE(tamo::platform::PurchaseResponseInfo)

#endif

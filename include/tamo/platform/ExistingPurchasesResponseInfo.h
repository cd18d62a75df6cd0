// SPDX-License-Identifier: Apache-2.0
#ifndef TAMO_PLATFORM_EXISTINGPURCHASESRESPONSEINFO_H
#define TAMO_PLATFORM_EXISTINGPURCHASESRESPONSEINFO_H

#include <tamo/platform/PaymentServiceResponse.h>
#include <tamo/platform/PurchaseReceipt.h>

#include <QtCore/QList>

namespace tamo {
namespace platform {

/**
 * The answer to the question for existing purchases.
 *
 * @since 0.1
 */
class TAMO_EXPORT ExistingPurchasesResponseInfo : public PaymentServiceResponse
{
public:
    /** An answer without an error, and empty. */
    ExistingPurchasesResponseInfo();

    /** An answer that says that the request failed. */
    ExistingPurchasesResponseInfo(int errorCode, const QString& errorText);

    ExistingPurchasesResponseInfo(const ExistingPurchasesResponseInfo& other);
    ExistingPurchasesResponseInfo& operator=(const ExistingPurchasesResponseInfo& other);
    ~ExistingPurchasesResponseInfo() override;

    /** The receipts of what the application's user has purchased, in the payment system's order;
     * empty after a failure. */
    QList<PurchaseReceipt> purchases() const;
};

} // namespace platform
} // namespace tamo

Q_DECLARE_METATYPE(tamo::platform::ExistingPurchasesResponseInfo)

#endif

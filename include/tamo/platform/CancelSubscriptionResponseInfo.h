// SPDX-License-Identifier: Apache-2.0
#ifndef TAMO_PLATFORM_CANCELSUBSCRIPTIONRESPONSEINFO_H
#define TAMO_PLATFORM_CANCELSUBSCRIPTIONRESPONSEINFO_H

#include <tamo/platform/PaymentServiceResponse.h>

namespace tamo {
namespace platform {

/**
 * The answer to the cancellation of a subscription.
 *
 * @since 0.1
 */
class TAMO_EXPORT CancelSubscriptionResponseInfo : public PaymentServiceResponse
{
public:
    /** An answer without an error, and empty. */
    CancelSubscriptionResponseInfo();

    /** An answer that says that the request failed. */
    CancelSubscriptionResponseInfo(int errorCode, const QString& errorText);

    CancelSubscriptionResponseInfo(const CancelSubscriptionResponseInfo& other);
    CancelSubscriptionResponseInfo& operator=(const CancelSubscriptionResponseInfo& other);
    ~CancelSubscriptionResponseInfo() override;

    /** Whether the subscription was cancelled; false where the payment system does not say so. */
    bool canceled() const;

    /** The purchase that the request named; null after a failure. */
    QString purchaseId() const;
};

} // namespace platform
} // namespace tamo

Q_DECLARE_METATYPE(tamo::platform::CancelSubscriptionResponseInfo)

#endif

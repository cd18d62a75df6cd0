// SPDX-License-Identifier: Apache-2.0
#include "CancelSubscriptionRequest.h"

#include "CancelSubscriptionResponseInfoPrivate.h"

#include <tamomock/PaymentServiceInterface.h>

namespace tamo {
namespace platform {

void CancelSubscriptionRequest::send(tamomock::PaymentServiceInterface* interface,
                                     const QString& windowGroupId)
{
    interface->cancelSubscription(purchaseId, windowGroupId, requestId);
}

void CancelSubscriptionRequest::onResponse(QSharedPointer<InterfaceResponse> response)
{
    CancelSubscriptionResponseInfo info;
    auto& d =
        CancelSubscriptionResponseInfoPrivate::write<CancelSubscriptionResponseInfoPrivate>(info);
    d.purchaseId = purchaseId;
    d.canceled = response->cancelled;
    Q_EMIT cancelSubscriptionResponse(info);
}

void CancelSubscriptionRequest::onError(int errorCode, const QString& errorText)
{
    Q_EMIT cancelSubscriptionResponse(CancelSubscriptionResponseInfo(errorCode, errorText));
}

} // namespace platform
} // namespace tamo

// SPDX-License-Identifier: Apache-2.0
#ifndef TAMO_PLATFORM_PAYMENT_CANCELSUBSCRIPTIONREQUEST_H
#define TAMO_PLATFORM_PAYMENT_CANCELSUBSCRIPTIONREQUEST_H

#include "Request.h"

#include <tamo/platform/CancelSubscriptionResponseInfo.h>

namespace tamo {
namespace platform {

class CancelSubscriptionRequest : public Request
{
    Q_OBJECT

public:
    explicit CancelSubscriptionRequest(const QString& purchase) : purchaseId(purchase) {}

    void send(tamomock::PaymentServiceInterface* interface, const QString& windowGroupId) override;
    void onResponse(QSharedPointer<InterfaceResponse> response) override;
    void onError(int errorCode, const QString& errorText) override;

    const QString purchaseId;

Q_SIGNALS:
    void cancelSubscriptionResponse(const tamo::platform::CancelSubscriptionResponseInfo& info);
};

} // namespace platform
} // namespace tamo

#endif

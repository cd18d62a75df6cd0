// SPDX-License-Identifier: Apache-2.0
#ifndef TAMO_PLATFORM_PAYMENT_SUBSCRIPTIONTERMSREQUEST_H
#define TAMO_PLATFORM_PAYMENT_SUBSCRIPTIONTERMSREQUEST_H

#include "Request.h"

#include <tamo/platform/SubscriptionTermsResponseInfo.h>

namespace tamo {
namespace platform {

class SubscriptionTermsRequest : public Request
{
    Q_OBJECT

public:
    SubscriptionTermsRequest(const QString& goodId, const QString& goodSku)
        : Request(goodId, goodSku)
    {
    }

    void send(tamomock::PaymentServiceInterface* interface, const QString& windowGroupId) override;
    void onResponse(QSharedPointer<InterfaceResponse> response) override;
    void onError(int errorCode, const QString& errorText) override;

Q_SIGNALS:
    void subscriptionTermsResponse(const tamo::platform::SubscriptionTermsResponseInfo& info);
};

} // namespace platform
} // namespace tamo

#endif

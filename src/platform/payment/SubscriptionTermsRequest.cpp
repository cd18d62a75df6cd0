// SPDX-License-Identifier: Apache-2.0
#include "SubscriptionTermsRequest.h"

#include "SubscriptionTermsResponseInfoPrivate.h"

#include <tamomock/PaymentServiceInterface.h>

namespace tamo {
namespace platform {

void SubscriptionTermsRequest::send(tamomock::PaymentServiceInterface* interface,
                                    const QString& windowGroupId)
{
    // The payment system tells the terms with the price.
    interface->price(digitalGoodId, digitalGoodSku, windowGroupId, requestId);
}

void SubscriptionTermsRequest::onResponse(QSharedPointer<InterfaceResponse> response)
{
    SubscriptionTermsResponseInfo info(digitalGoodId, digitalGoodSku);
    auto& d =
        SubscriptionTermsResponseInfoPrivate::write<SubscriptionTermsResponseInfoPrivate>(info);
    d.price = response->price;
    d.initialPeriod = response->initialPeriod;
    d.renewalPrice = response->renewalPrice;
    d.renewalPeriod = response->renewalPeriod;
    Q_EMIT subscriptionTermsResponse(info);
}

void SubscriptionTermsRequest::onError(int errorCode, const QString& errorText)
{
    Q_EMIT subscriptionTermsResponse(
        SubscriptionTermsResponseInfo(digitalGoodId, digitalGoodSku, errorCode, errorText));
}

} // namespace platform
} // namespace tamo

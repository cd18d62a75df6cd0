// SPDX-License-Identifier: Apache-2.0
#include "PriceRequest.h"

#include "PriceResponseInfoPrivate.h"

#include <tamomock/PaymentServiceInterface.h>

namespace tamo {
namespace platform {

void PriceRequest::send(tamomock::PaymentServiceInterface* interface, const QString& windowGroupId)
{
    interface->price(digitalGoodId, digitalGoodSku, windowGroupId, requestId);
}

void PriceRequest::onResponse(QSharedPointer<InterfaceResponse> response)
{
    PriceResponseInfo info(digitalGoodId, digitalGoodSku);
    PriceResponseInfoPrivate::write<PriceResponseInfoPrivate>(info).price = response->price;
    Q_EMIT priceResponse(info);
}

void PriceRequest::onError(int errorCode, const QString& errorText)
{
    Q_EMIT priceResponse(PriceResponseInfo(digitalGoodId, digitalGoodSku, errorCode, errorText));
}

} // namespace platform
} // namespace tamo

// SPDX-License-Identifier: Apache-2.0
#include "PurchaseRequest.h"

#include "PurchaseResponseInfoPrivate.h"

#include <tamo/platform/PaymentService.h>
#include <tamomock/PaymentServiceInterface.h>

namespace tamo {
namespace platform {

void PurchaseRequest::send(tamomock::PaymentServiceInterface* interface,
                           const QString& windowGroupId)
{
    const PaymentService* const service = PaymentService::getInstance();
    interface->purchase(digitalGoodId, digitalGoodSku, digitalGoodName, purchaseMetadata,
                        service->applicationName(), service->applicationIcon().toString(),
                        windowGroupId, requestId);
}

void PurchaseRequest::onResponse(QSharedPointer<InterfaceResponse> response)
{
    PurchaseResponseInfo info;
    PurchaseResponseInfoPrivate::write<PurchaseResponseInfoPrivate>(info).receipt =
        response->receipt;
    Q_EMIT purchaseResponse(info);
}

void PurchaseRequest::onError(int errorCode, const QString& errorText)
{
    Q_EMIT purchaseResponse(
        PurchaseResponseInfo(digitalGoodId, digitalGoodSku, errorCode, errorText));
}

} // namespace platform
} // namespace tamo

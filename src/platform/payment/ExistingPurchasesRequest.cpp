// SPDX-License-Identifier: Apache-2.0
#include "ExistingPurchasesRequest.h"

#include "ExistingPurchasesResponseInfoPrivate.h"

#include <tamomock/PaymentServiceInterface.h>

namespace tamo {
namespace platform {

void ExistingPurchasesRequest::send(tamomock::PaymentServiceInterface* interface,
                                    const QString& windowGroupId)
{
    interface->existingPurchases(allowRefresh, windowGroupId, requestId);
}

void ExistingPurchasesRequest::onResponse(QSharedPointer<InterfaceResponse> response)
{
    ExistingPurchasesResponseInfo info;
    ExistingPurchasesResponseInfoPrivate::write<ExistingPurchasesResponseInfoPrivate>(info)
        .purchases = response->purchases;
    Q_EMIT existingPurchasesResponse(info);
}

void ExistingPurchasesRequest::onError(int errorCode, const QString& errorText)
{
    Q_EMIT existingPurchasesResponse(ExistingPurchasesResponseInfo(errorCode, errorText));
}

} // namespace platform
} // namespace tamo

// SPDX-License-Identifier: Apache-2.0
#include "CheckStatusRequest.h"

#include "CheckStatusResponseInfoPrivate.h"

#include <tamomock/PaymentServiceInterface.h>

namespace tamo {
namespace platform {

void CheckStatusRequest::send(tamomock::PaymentServiceInterface* interface,
                              const QString& windowGroupId)
{
    interface->checkStatus(digitalGoodId, digitalGoodSku, windowGroupId, requestId);
}

void CheckStatusRequest::onResponse(QSharedPointer<InterfaceResponse> response)
{
    CheckStatusResponseInfo info(digitalGoodId, digitalGoodSku);
    CheckStatusResponseInfoPrivate::write<CheckStatusResponseInfoPrivate>(info).active =
        response->subscriptionExists;
    Q_EMIT checkStatusResponse(info);
}

void CheckStatusRequest::onError(int errorCode, const QString& errorText)
{
    Q_EMIT checkStatusResponse(
        CheckStatusResponseInfo(digitalGoodId, digitalGoodSku, errorCode, errorText));
}

} // namespace platform
} // namespace tamo

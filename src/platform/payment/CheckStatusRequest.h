// SPDX-License-Identifier: Apache-2.0
#ifndef TAMO_PLATFORM_PAYMENT_CHECKSTATUSREQUEST_H
#define TAMO_PLATFORM_PAYMENT_CHECKSTATUSREQUEST_H

#include "Request.h"

#include <tamo/platform/CheckStatusResponseInfo.h>

namespace tamo {
namespace platform {

class CheckStatusRequest : public Request
{
    Q_OBJECT

public:
    CheckStatusRequest(const QString& goodId, const QString& goodSku) : Request(goodId, goodSku) {}

    void send(tamomock::PaymentServiceInterface* interface, const QString& windowGroupId) override;
    void onResponse(QSharedPointer<InterfaceResponse> response) override;
    void onError(int errorCode, const QString& errorText) override;

Q_SIGNALS:
    void checkStatusResponse(const tamo::platform::CheckStatusResponseInfo& info);
};

} // namespace platform
} // namespace tamo

#endif

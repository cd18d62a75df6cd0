// SPDX-License-Identifier: Apache-2.0
#ifndef TAMO_PLATFORM_PAYMENT_EXISTINGPURCHASESREQUEST_H
#define TAMO_PLATFORM_PAYMENT_EXISTINGPURCHASESREQUEST_H

#include "Request.h"

#include <tamo/platform/ExistingPurchasesResponseInfo.h>

namespace tamo {
namespace platform {

class ExistingPurchasesRequest : public Request
{
    Q_OBJECT

public:
    explicit ExistingPurchasesRequest(bool mayRefresh) : allowRefresh(mayRefresh) {}

    void send(tamomock::PaymentServiceInterface* interface, const QString& windowGroupId) override;
    void onResponse(QSharedPointer<InterfaceResponse> response) override;
    void onError(int errorCode, const QString& errorText) override;

    const bool allowRefresh;

Q_SIGNALS:
    void existingPurchasesResponse(const tamo::platform::ExistingPurchasesResponseInfo& info);
};

} // namespace platform
} // namespace tamo

#endif

// SPDX-License-Identifier: Apache-2.0
#ifndef TAMO_PLATFORM_PAYMENT_PRICEREQUEST_H
#define TAMO_PLATFORM_PAYMENT_PRICEREQUEST_H

#include "Request.h"

#include <tamo/platform/PriceResponseInfo.h>

namespace tamo {
namespace platform {

class PriceRequest : public Request
{
    Q_OBJECT

public:
    PriceRequest(const QString& goodId, const QString& goodSku) : Request(goodId, goodSku) {}

    void send(tamomock::PaymentServiceInterface* interface, const QString& windowGroupId) override;
    void onResponse(QSharedPointer<InterfaceResponse> response) override;
    void onError(int errorCode, const QString& errorText) override;

Q_SIGNALS:
    void priceResponse(const tamo::platform::PriceResponseInfo& info);
};

} // namespace platform
} // namespace tamo

#endif

// SPDX-License-Identifier: Apache-2.0
#ifndef TAMO_PLATFORM_PAYMENT_PURCHASEREQUEST_H
#define TAMO_PLATFORM_PAYMENT_PURCHASEREQUEST_H

#include "Request.h"

#include <tamo/platform/PurchaseResponseInfo.h>

namespace tamo {
namespace platform {

class PurchaseRequest : public Request
{
    Q_OBJECT

public:
    PurchaseRequest(const QString& goodId, const QString& goodSku, const QString& goodName,
                    const QString& metadata)
        : Request(goodId, goodSku), digitalGoodName(goodName), purchaseMetadata(metadata)
    {
    }

    void send(tamomock::PaymentServiceInterface* interface, const QString& windowGroupId) override;
    void onResponse(QSharedPointer<InterfaceResponse> response) override;
    void onError(int errorCode, const QString& errorText) override;

    const QString digitalGoodName;
    const QString purchaseMetadata;

Q_SIGNALS:
    void purchaseResponse(const tamo::platform::PurchaseResponseInfo& info);
};

} // namespace platform
} // namespace tamo

#endif

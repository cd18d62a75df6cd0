// SPDX-License-Identifier: Apache-2.0
#include <tamo/platform/PurchaseResponseInfo.h>

#include "PurchaseResponseInfoPrivate.h"

namespace tamo {
namespace platform {

PurchaseResponseInfo::PurchaseResponseInfo() : DigitalGoodResponse(*new PurchaseResponseInfoPrivate)
{
}

PurchaseResponseInfo::PurchaseResponseInfo(const QString& digitalGoodId,
                                           const QString& digitalGoodSku)
    : DigitalGoodResponse(*new PurchaseResponseInfoPrivate(digitalGoodId, digitalGoodSku))
{
}

PurchaseResponseInfo::PurchaseResponseInfo(const QString& digitalGoodId,
                                           const QString& digitalGoodSku, int errorCode,
                                           const QString& errorText)
    : DigitalGoodResponse(
          *new PurchaseResponseInfoPrivate(digitalGoodId, digitalGoodSku, errorCode, errorText))
{
}

PurchaseResponseInfo::PurchaseResponseInfo(const PurchaseResponseInfo& other) = default;

PurchaseResponseInfo& PurchaseResponseInfo::operator=(const PurchaseResponseInfo& other) = default;

PurchaseResponseInfo::~PurchaseResponseInfo() = default;

QSharedPointer<PurchaseReceipt> PurchaseResponseInfo::receipt() const
{
    return PurchaseResponseInfoPrivate::read<PurchaseResponseInfoPrivate>(*this).receipt;
}

QString PurchaseResponseInfo::purchaseMetadata() const
{
    return PurchaseResponseInfoPrivate::read<PurchaseResponseInfoPrivate>(*this).purchaseMetadata;
}

} // namespace platform
} // namespace tamo

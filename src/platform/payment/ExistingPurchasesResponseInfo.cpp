// SPDX-License-Identifier: Apache-2.0
#include <tamo/platform/ExistingPurchasesResponseInfo.h>

#include "ExistingPurchasesResponseInfoPrivate.h"

namespace tamo {
namespace platform {

ExistingPurchasesResponseInfo::ExistingPurchasesResponseInfo()
    : PaymentServiceResponse(*new ExistingPurchasesResponseInfoPrivate)
{
}

ExistingPurchasesResponseInfo::ExistingPurchasesResponseInfo(int errorCode,
                                                             const QString& errorText)
    : PaymentServiceResponse(*new ExistingPurchasesResponseInfoPrivate(errorCode, errorText))
{
}

ExistingPurchasesResponseInfo::ExistingPurchasesResponseInfo(
    const ExistingPurchasesResponseInfo& other) = default;

ExistingPurchasesResponseInfo&
ExistingPurchasesResponseInfo::operator=(const ExistingPurchasesResponseInfo& other) = default;

ExistingPurchasesResponseInfo::~ExistingPurchasesResponseInfo() = default;

QList<PurchaseReceipt> ExistingPurchasesResponseInfo::purchases() const
{
    return ExistingPurchasesResponseInfoPrivate::read<ExistingPurchasesResponseInfoPrivate>(*this)
        .purchases;
}

} // namespace platform
} // namespace tamo

// SPDX-License-Identifier: Apache-2.0
#include <tamo/platform/CancelSubscriptionResponseInfo.h>

#include "CancelSubscriptionResponseInfoPrivate.h"

namespace tamo {
namespace platform {

CancelSubscriptionResponseInfo::CancelSubscriptionResponseInfo()
    : PaymentServiceResponse(*new CancelSubscriptionResponseInfoPrivate)
{
}

CancelSubscriptionResponseInfo::CancelSubscriptionResponseInfo(int errorCode,
                                                               const QString& errorText)
    : PaymentServiceResponse(*new CancelSubscriptionResponseInfoPrivate(errorCode, errorText))
{
}

CancelSubscriptionResponseInfo::CancelSubscriptionResponseInfo(
    const CancelSubscriptionResponseInfo& other) = default;

CancelSubscriptionResponseInfo&
CancelSubscriptionResponseInfo::operator=(const CancelSubscriptionResponseInfo& other) = default;

CancelSubscriptionResponseInfo::~CancelSubscriptionResponseInfo() = default;

bool CancelSubscriptionResponseInfo::canceled() const
{
    return CancelSubscriptionResponseInfoPrivate::read<CancelSubscriptionResponseInfoPrivate>(*this)
        .canceled;
}

QString CancelSubscriptionResponseInfo::purchaseId() const
{
    return CancelSubscriptionResponseInfoPrivate::read<CancelSubscriptionResponseInfoPrivate>(*this)
        .purchaseId;
}

} // namespace platform
} // namespace tamo

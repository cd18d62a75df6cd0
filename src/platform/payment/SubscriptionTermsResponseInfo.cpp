// SPDX-License-Identifier: Apache-2.0
#include <tamo/platform/SubscriptionTermsResponseInfo.h>

#include "SubscriptionTermsResponseInfoPrivate.h"

namespace tamo {
namespace platform {

SubscriptionTermsResponseInfo::SubscriptionTermsResponseInfo()
    : PriceResponseInfo(*new SubscriptionTermsResponseInfoPrivate)
{
}

SubscriptionTermsResponseInfo::SubscriptionTermsResponseInfo(const QString& digitalGoodId,
                                                             const QString& digitalGoodSku)
    : PriceResponseInfo(*new SubscriptionTermsResponseInfoPrivate(digitalGoodId, digitalGoodSku))
{
}

SubscriptionTermsResponseInfo::SubscriptionTermsResponseInfo(const QString& digitalGoodId,
                                                             const QString& digitalGoodSku,
                                                             int errorCode,
                                                             const QString& errorText)
    : PriceResponseInfo(*new SubscriptionTermsResponseInfoPrivate(digitalGoodId, digitalGoodSku,
                                                                  errorCode, errorText))
{
}

SubscriptionTermsResponseInfo::SubscriptionTermsResponseInfo(
    const SubscriptionTermsResponseInfo& other) = default;

SubscriptionTermsResponseInfo&
SubscriptionTermsResponseInfo::operator=(const SubscriptionTermsResponseInfo& other) = default;

SubscriptionTermsResponseInfo::~SubscriptionTermsResponseInfo() = default;

QString SubscriptionTermsResponseInfo::initialPeriod() const
{
    return SubscriptionTermsResponseInfoPrivate::read<SubscriptionTermsResponseInfoPrivate>(*this)
        .initialPeriod;
}

QString SubscriptionTermsResponseInfo::renewalPrice() const
{
    return SubscriptionTermsResponseInfoPrivate::read<SubscriptionTermsResponseInfoPrivate>(*this)
        .renewalPrice;
}

QString SubscriptionTermsResponseInfo::renewalPeriod() const
{
    return SubscriptionTermsResponseInfoPrivate::read<SubscriptionTermsResponseInfoPrivate>(*this)
        .renewalPeriod;
}

} // namespace platform
} // namespace tamo

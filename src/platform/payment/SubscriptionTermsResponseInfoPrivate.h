// SPDX-License-Identifier: Apache-2.0
#ifndef TAMO_PLATFORM_PAYMENT_SUBSCRIPTIONTERMSRESPONSEINFOPRIVATE_H
#define TAMO_PLATFORM_PAYMENT_SUBSCRIPTIONTERMSRESPONSEINFOPRIVATE_H

#include "PriceResponseInfoPrivate.h"

namespace tamo {
namespace platform {

class SubscriptionTermsResponseInfoPrivate : public PriceResponseInfoPrivate
{
public:
    using PriceResponseInfoPrivate::PriceResponseInfoPrivate;

    QString initialPeriod;
    QString renewalPrice;
    QString renewalPeriod;
};

} // namespace platform
} // namespace tamo

#endif

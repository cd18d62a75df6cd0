// SPDX-License-Identifier: Apache-2.0
#ifndef TAMO_PLATFORM_PAYMENT_CANCELSUBSCRIPTIONRESPONSEINFOPRIVATE_H
#define TAMO_PLATFORM_PAYMENT_CANCELSUBSCRIPTIONRESPONSEINFOPRIVATE_H

#include "PaymentServiceResponsePrivate.h"

namespace tamo {
namespace platform {

class CancelSubscriptionResponseInfoPrivate : public PaymentServiceResponsePrivate
{
public:
    using PaymentServiceResponsePrivate::PaymentServiceResponsePrivate;

    QString purchaseId;
    bool canceled = false;
};

} // namespace platform
} // namespace tamo

#endif

// SPDX-License-Identifier: Apache-2.0
#ifndef TAMO_PLATFORM_PAYMENT_PRICERESPONSEINFOPRIVATE_H
#define TAMO_PLATFORM_PAYMENT_PRICERESPONSEINFOPRIVATE_H

#include "DigitalGoodResponsePrivate.h"

namespace tamo {
namespace platform {

class PriceResponseInfoPrivate : public DigitalGoodResponsePrivate
{
public:
    using DigitalGoodResponsePrivate::DigitalGoodResponsePrivate;

    QString price;
};

} // namespace platform
} // namespace tamo

#endif
